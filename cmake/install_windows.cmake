# An installed program is one folder, on a stick as on a disk: the programs, what they are linked with, the templates and
# the configuration that they read beside themselves.
set(programs tarven-hemodialysis tarven-check tarven-report)
# With what tools/windows-test needs besides.
add_custom_target(programs DEPENDS ${programs} tarven-tour tarven-torture)
install(TARGETS ${programs} DESTINATION .)

# What the file manager and the task bar show of a program.
find_program(ICOTOOL icotool REQUIRED)
set(made ${PROJECT_BINARY_DIR}/packaging)
set(drawn ${PROJECT_BINARY_DIR}/src/toolkit/icons/program)
foreach(size IN LISTS program_icon_sizes)
  list(APPEND icon_pictures ${drawn}/${size}.png)
endforeach()
add_custom_command(OUTPUT ${made}/program.ico
  COMMAND ${CMAKE_COMMAND} -E make_directory ${made}
  COMMAND ${ICOTOOL} --create --output=${made}/program.ico ${icon_pictures}
  DEPENDS toolkit)
add_custom_target(program_ico DEPENDS ${made}/program.ico)
enable_language(RC)
foreach(program IN LISTS programs)
  set(TARVEN_PROGRAM ${program})
  configure_file(packaging/windows/program.rc.in ${made}/${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${made}/${program}.rc)
  set_source_files_properties(${made}/${program}.rc TARGET_DIRECTORY ${program}
    PROPERTIES OBJECT_DEPENDS ${made}/program.ico)
  add_dependencies(${program} program_ico)
endforeach()
# A window needs no console behind it.
set_target_properties(tarven-hemodialysis PROPERTIES WIN32_EXECUTABLE ON)

install(DIRECTORY Reports DESTINATION .)
install(FILES Reports/RadioConsultation.rpt Reports/ChargeSlip.rpt driver/tarvenaux.ini DESTINATION .)
# An installation leaves alone what an administrator may have changed; here he finds what came with it.
install(DIRECTORY Reports DESTINATION "documents/as delivered")
install(FILES driver/tarvenaux.ini DESTINATION "documents/as delivered")
install(FILES ${program_faces} DESTINATION fonts)
install(DIRECTORY docs DESTINATION documents)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION documents)

set(libraries ${TARVEN_WINDOWS_LIBRARIES})
install(DIRECTORY ${libraries}/licences DESTINATION documents)
foreach(package fonts-liberation2 gcc-mingw-w64-base mingw-w64-common)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION documents/licences RENAME ${package}.txt)
endforeach()
foreach(library Qt6Core Qt6Gui Qt6Widgets Qt6PrintSupport libsodium-23 sqlite3)
  install(PROGRAMS ${libraries}/bin/${library}.dll DESTINATION .)
endforeach()
install(PROGRAMS ${libraries}/plugins/platforms/qwindows.dll ${libraries}/plugins/platforms/qoffscreen.dll
        DESTINATION platforms)
install(PROGRAMS ${libraries}/plugins/imageformats/qjpeg.dll DESTINATION imageformats)
foreach(library libgcc_s_seh-1 libstdc++-6 libwinpthread-1)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}.dll
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  install(PROGRAMS ${file} DESTINATION .)
endforeach()

# tools/package installs into the stage and gives the installer its name.
set(TARVEN_STAGE ${made}/stage)
set(TARVEN_PACKAGE ${PROJECT_SOURCE_DIR}/build/packages/tarven-hemodialysis_${PROJECT_VERSION}_windows)
configure_file(packaging/windows/installer.nsi.in ${made}/installer.nsi @ONLY)
