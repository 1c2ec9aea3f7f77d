# One-line registration of tests, Qt tests and fuzz targets.

find_package(GTest REQUIRED)

# marlview_add_gtest(name sources... [LIBS libs...]): a GoogleTest executable on the core, run by CTest
# with a fresh data directory made by the test itself.
function(marlview_add_gtest name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE marlview_core marlview_test_support GTest::gtest GTest::gtest_main ${ARG_LIBS})
  target_compile_options(${name} PRIVATE ${MARLVIEW_WARNINGS})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
    "MARLVIEW_TEST_DATA=${CMAKE_SOURCE_DIR}/tests/data;MARLVIEW_DEFAULTS_DIR=${MARLVIEW_SOURCE_DATA_DIR}/defaults;MARLVIEW_SAMPLES_DIR=${MARLVIEW_SOURCE_DATA_DIR}/samples")
endfunction()

# marlview_add_qttest(name sources...): a QtTest executable driving the real windows offscreen.
function(marlview_add_qttest name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE marlview_ui marlview_test_support Qt6::Test)
  target_compile_options(${name} PRIVATE ${MARLVIEW_WARNINGS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;MARLVIEW_TEST_DATA=${CMAKE_SOURCE_DIR}/tests/data;MARLVIEW_DEFAULTS_DIR=${MARLVIEW_SOURCE_DATA_DIR}/defaults;MARLVIEW_SAMPLES_DIR=${MARLVIEW_SOURCE_DATA_DIR}/samples")
endfunction()
