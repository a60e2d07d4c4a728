# What most files read, compiled once for all of them. Only where files are joined: a build of single files shall find
# out what a file forgot to include.
option(TARVEN_PRECOMPILE "Compile the toolkit's headers and the test framework's once" OFF)

set(widget_headers <QApplication> <QComboBox> <QDialog> <QGroupBox> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow>
  <QMdiSubWindow> <QPainter> <QPushButton> <QTableView> <QTimer> <QVBoxLayout> <algorithm> <array> <functional>
  <map> <memory> <optional> <utility> <variant> <vector>)

# tarven_precompiled(<kind> <link libraries...> HEADERS <headers...>)
#   The library <kind>_headers, whose headers tarven_reads(<target> <kind>) gives to a target.
function(tarven_precompiled kind)
  cmake_parse_arguments(P "" "" "LINK;HEADERS" ${ARGN})
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${kind}_headers.cpp CONTENT "")
  add_library(${kind}_headers OBJECT ${PROJECT_BINARY_DIR}/${kind}_headers.cpp)
  set_target_properties(${kind}_headers PROPERTIES AUTOMOC OFF UNITY_BUILD OFF)
  target_link_libraries(${kind}_headers PRIVATE ${P_LINK})
  target_precompile_headers(${kind}_headers PRIVATE ${P_HEADERS})
endfunction()

function(tarven_reads target kind)
  if(TARVEN_PRECOMPILE)
    target_link_libraries(${target} PRIVATE Qt6::Widgets)
    target_precompile_headers(${target} REUSE_FROM ${kind}_headers)
  endif()
endfunction()

if(TARVEN_PRECOMPILE)
  # The cache of compilations takes a file's headers as they were when these were made.
  if(CCACHE AND CMAKE_CXX_COMPILER_LAUNCHER STREQUAL "${CCACHE}")
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)
  endif()
  tarven_precompiled(screen LINK Qt6::Widgets tarven_warnings tarven_sanitizers HEADERS ${widget_headers})
  if(TARVEN_TESTS)
    tarven_precompiled(test LINK Qt6::Widgets GTest::gmock tarven_warnings HEADERS ${widget_headers} <gmock/gmock.h>)
  endif()
endif()
