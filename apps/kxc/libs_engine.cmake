# Library of the engine command (caches in SQLite).
target_link_libraries(kxc PRIVATE kxc_engine)
