# Libraries of the settings, translate and catalogue commands; the catalogues are copied beside
# the program, where the library looks for them.
target_link_libraries(kxc PRIVATE kxc_settings kxc_catalogue)
file(GLOB KXC_CATALOGUE_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/*.xml)
if(KXC_CATALOGUE_FILES)
  add_custom_command(TARGET kxc POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${KXC_CATALOGUE_FILES} $<TARGET_FILE_DIR:kxc>
    VERBATIM)
endif()
