# kxc_add_gtest(NAME LABEL core|adapters|gui SOURCES ... LIBS ...)
# Builds one GoogleTest program and registers each of its tests with CTest under the label.
function(kxc_add_gtest name)
  cmake_parse_arguments(T "" "LABEL" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} kxc_testing GTest::gtest GTest::gmock
                        GTest::gtest_main kxc_warnings kxc_sanitizers)
  gtest_discover_tests(${name}
    TEST_PREFIX "${T_LABEL}-"
    PROPERTIES LABELS "${T_LABEL}"
               ENVIRONMENT "LANG=C.UTF-8;QT_QPA_PLATFORM=offscreen;KXC_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
    DISCOVERY_TIMEOUT 120)
endfunction()
