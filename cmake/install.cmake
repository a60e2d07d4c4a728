# An installed program has a folder of its own: the program, the templates that it reads beside itself, and the
# configuration of the department, which setup writes there. A command on the path leads to it. Two departments on one
# machine are two such folders.
include(GNUInstallDirs)
set(program_folder lib/tarven/hemodialysis)

install(TARGETS tarven-hemodialysis DESTINATION ${program_folder})
install(DIRECTORY Reports DESTINATION ${program_folder})
# Two templates are looked for in the program's own folder.
install(FILES Reports/RadioConsultation.rpt Reports/ChargeSlip.rpt DESTINATION ${program_folder})
install(CODE "
  set(commands \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})
  file(MAKE_DIRECTORY \${commands})
  file(RELATIVE_PATH program /${CMAKE_INSTALL_BINDIR} /${program_folder}/tarven-hemodialysis)
  file(CREATE_LINK \${program} \${commands}/tarven-hemodialysis SYMBOLIC)")

install(DIRECTORY docs/manual DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES README.md CHANGELOG.md LICENSE docs/deployment.md docs/templates.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES driver/tarvenaux.ini DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
