# tarven_room(<name> LINK <libraries...> [SUBFOLDERS <folders...>])
#   One folder of src/ as one static library. Every .cpp and .h of the folder, and of the subfolders that are named,
#   belongs to it. What operating systems do in ways of their own stands behind one header, with a file in posix/ and
#   one in windows/ beside it.
set(operating_system posix)
if(WIN32)
  set(operating_system windows)
endif()
function(tarven_room name)
  cmake_parse_arguments(ROOM "" "" "LINK;SUBFOLDERS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h ${operating_system}/*.cpp)
  foreach(folder IN LISTS ROOM_SUBFOLDERS)
    file(GLOB more CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h ${folder}/${operating_system}/*.cpp)
    list(APPEND sources ${more})
  endforeach()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ROOM_LINK} PRIVATE tarven_warnings tarven_sanitizers)
endfunction()

option(TARVEN_WHOLE_PROGRAMS "Let CTest run each test program as a whole" OFF)

# tarven_tests(<name> LINK <libraries...> [SHARDS <n>])
#   The *_test.cpp of the current tests folder as one program, one CTest entry per test case. With
#   TARVEN_WHOLE_PROGRAMS it is one entry for the program, which tells its cases in results/, or one for each of its
#   shards: a process for each case costs more than the cases do.
function(tarven_tests name)
  cmake_parse_arguments(T "" "SHARDS" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *_test.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${T_LINK} GTest::gmock tarven_warnings)
  tarven_reads(${name} test)
  target_compile_definitions(${name} PRIVATE TARVEN_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                             TARVEN_BUILD_DIR="${PROJECT_BINARY_DIR}")
  set(leaks leaks.txt)
  if(test_main IN_LIST T_LINK)
    set(leaks screen_leaks.txt)
  endif()
  set(leaks "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/${leaks}:print_suppressions=0")
  if(TARVEN_WHOLE_PROGRAMS)
    tarven_whole_program(${name} "${leaks}" "${T_SHARDS}")
  else()
    # Values that print as bytes would make names that change from build to build.
    gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 120 ENVIRONMENT "${leaks}")
  endif()
endfunction()

# tarven_whole_program(<name> <environment> <shards>)
#   The program's CTest entries; those that are cut into shards take longest and start first.
function(tarven_whole_program name environment shards)
  if(NOT shards)
    set(shards 1)
  endif()
  math(EXPR last "${shards} - 1")
  foreach(shard RANGE ${last})
    set(entry ${name}_${shard})
    add_test(NAME ${entry} COMMAND ${name} --gtest_output=xml:${PROJECT_BINARY_DIR}/results/${entry}.xml)
    # The thread sanitizer does not see the locks of the toolkit, which is built without it.
    set_tests_properties(${entry} PROPERTIES TIMEOUT 900 COST ${shards}
      ENVIRONMENT "${environment};TSAN_OPTIONS=ignore_noninstrumented_modules=1:die_after_fork=0;GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()

# tarven_alone(<files...>)
#   Files whose headers define macros with everybody's words; they are never joined with others in one compilation.
function(tarven_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
