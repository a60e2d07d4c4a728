# The icons are drawn as SVG, in the light desktop's colours. A program needs no module for them: they become pictures
# here, one for each ground that they show on. One side of a picture is a multiple of what a drawing is laid out on, so
# that a smaller one made of it is as sharp as one that was drawn.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icon_side 192)
set(icon_colors text ink softInk problem warning window onMark)

# Both tables of colours have a line for each name: the light desktop's first.
set(color_table ${PROJECT_SOURCE_DIR}/src/toolkit/Colors.cpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${color_table})
foreach(color IN LISTS icon_colors)
  file(STRINGS ${color_table} lines REGEX "\\.${color} = Rgb\\(0x[0-9a-f]+\\)")
  list(TRANSFORM lines REPLACE ".*0x([0-9a-f]+).*" "#\\1")
  list(GET lines 0 light_${color})
  list(GET lines 1 dark_${color})
endforeach()

# icon_drawing(<variable> <drawing> <light or dark> [SELECTED])
#   The drawing in the colours of a desktop. On a selected row the icon's own would drown.
function(icon_drawing variable drawing desktop)
  foreach(color IN LISTS icon_colors)
    set(now ${${desktop}_${color}})
    if("${ARGN}" STREQUAL SELECTED AND color MATCHES "^(text|ink|softInk)$")
      set(now ${${desktop}_onMark})
    endif()
    if(NOT color STREQUAL onMark)
      # Through a name, so that what has become a colour of this desktop is not taken for one of the light one.
      string(REPLACE "${light_${color}}" "@${color}@" drawing "${drawing}")
      list(APPEND changes "@${color}@" "${now}")
    endif()
  endforeach()
  while(changes)
    list(POP_FRONT changes name now)
    string(REPLACE "${name}" "${now}" drawing "${drawing}")
  endwhile()
  set(${variable} "${drawing}" PARENT_SCOPE)
endfunction()

# tarven_icons(<room>)
#   The drawings of the room's folder icons/ as :/icons/{light,dark}[-selected]/<name>.png.
function(tarven_icons room)
  set(made ${CMAKE_CURRENT_BINARY_DIR}/icons)
  file(GLOB drawings CONFIGURE_DEPENDS icons/*.svg)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${drawings})
  foreach(drawn IN LISTS drawings)
    cmake_path(GET drawn STEM name)
    file(READ ${drawn} drawing)
    foreach(desktop light dark)
      foreach(ground "" -selected)
        string(REPLACE -selected SELECTED selected "${ground}")
        icon_drawing(colored "${drawing}" ${desktop} ${selected})
        set(picture ${made}/${desktop}${ground}/${name})
        file(CONFIGURE OUTPUT ${picture}.svg CONTENT "${colored}" @ONLY)
        add_custom_command(OUTPUT ${picture}.png
          COMMAND ${RSVG_CONVERT} -w ${icon_side} -h ${icon_side} -o ${picture}.png ${picture}.svg
          DEPENDS ${picture}.svg)
        list(APPEND pictures ${picture}.png)
      endforeach()
    endforeach()
  endforeach()
  qt_add_resources(${room} ${room}_icons PREFIX /icons BASE ${made} FILES ${pictures})
endfunction()

# The sizes at which desktops show the program.
set(program_icon_sizes 16 24 32 48 64 128 256)
# tarven_program_icon(<room> <drawing>)
#   The program's icon as :/icons/program/<size>.png, in its own colours: desktops show it on grounds of theirs.
function(tarven_program_icon room drawing)
  foreach(size IN LISTS program_icon_sizes)
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/icons/program/${size}.png)
    add_custom_command(OUTPUT ${picture}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icons/program
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${picture} ${drawing}
      DEPENDS ${drawing})
    list(APPEND pictures ${picture})
  endforeach()
  qt_add_resources(${room} program_icon PREFIX /icons BASE ${CMAKE_CURRENT_BINARY_DIR}/icons FILES ${pictures})
endfunction()
