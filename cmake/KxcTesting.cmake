# kxc_add_gtest(NAME LABEL core|adapters|gui SOURCES ... LIBS ...)
# Builds one GoogleTest program and registers each of its tests with CTest under the label.
# The programs find the source tree through the KXC_SOURCE_DIR definition. The environment
# (LANG=C.UTF-8, QT_QPA_PLATFORM=offscreen) is set once per test: gtest_discover_tests splits a
# list of variables into separate properties, so only one variable is passed that way and the
# Qt programs fall back to offscreen themselves when no platform is set.
function(kxc_add_gtest name)
  cmake_parse_arguments(T "" "LABEL" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} kxc_testing GTest::gtest GTest::gmock
                        GTest::gtest_main kxc_warnings kxc_sanitizers)
  target_compile_definitions(${name} PRIVATE KXC_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${name}
    TEST_PREFIX "${T_LABEL}-"
    PROPERTIES LABELS "${T_LABEL}" ENVIRONMENT "LANG=C.UTF-8"
    DISCOVERY_TIMEOUT 120)
endfunction()
