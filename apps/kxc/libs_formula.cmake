# Libraries of the formula command: the scratch workbook references resolve in, and the cache
# engine that answers CacheFind when a database is given.
target_link_libraries(kxc PRIVATE kxc_workbook kxc_engine)
