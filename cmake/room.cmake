# tarven_room(<name> LINK <libraries...> [SUBFOLDERS <folders...>])
#   One folder of src/ as one static library. Every .cpp and .h of the folder, and of the subfolders that are named,
#   belongs to it.
function(tarven_room name)
  cmake_parse_arguments(ROOM "" "" "LINK;SUBFOLDERS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  foreach(folder IN LISTS ROOM_SUBFOLDERS)
    file(GLOB more CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
    list(APPEND sources ${more})
  endforeach()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ROOM_LINK} PRIVATE tarven_warnings tarven_sanitizers)
endfunction()

# tarven_tests(<name> LINK <libraries...>)
#   The *_test.cpp of the current tests folder as one program, one CTest entry per test case.
function(tarven_tests name)
  cmake_parse_arguments(T "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *_test.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${T_LINK} GTest::gmock tarven_warnings tarven_sanitizers)
  target_compile_definitions(${name} PRIVATE TARVEN_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                             TARVEN_BUILD_DIR="${PROJECT_BINARY_DIR}")
  set(leaks leaks.txt)
  if(test_main IN_LIST T_LINK)
    set(leaks screen_leaks.txt)
  endif()
  set(leaks "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/${leaks}:print_suppressions=0")
  # Values that print as bytes would make names that change from build to build.
  gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "${leaks}")
endfunction()
