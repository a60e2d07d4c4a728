# An installed program has a folder of its own: the program, the templates that it reads beside itself, and the
# configuration of the department, which setup writes there. A command on the path leads to it.
#
# A distribution keeps what an administrator may change below /etc: there the templates and the configuration are links.
include(GNUInstallDirs)
option(TARVEN_FILES_IN_ETC "Install what an administrator may change below /etc" OFF)
set(program_folder lib/tarven/hemodialysis)
# They are looked for in the department's folder itself.
set(templates_beside_program RadioConsultation.rpt ChargeSlip.rpt)
# Each has a page packaging/<program>.1.in for man.
set(programs tarven-hemodialysis tarven-check tarven-report)
add_custom_target(programs DEPENDS ${programs})

install(TARGETS ${programs} DESTINATION ${program_folder})

# A link in a folder of the installation to what lies at another place of the file system.
function(install_link to link)
  cmake_path(GET link PARENT_PATH folder)
  install(CODE "
    set(folder \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder})
    file(MAKE_DIRECTORY \${folder})
    file(CREATE_LINK ${to} \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${link} SYMBOLIC)")
endfunction()

if(TARVEN_FILES_IN_ETC)
  set(department_folder ${CMAKE_INSTALL_FULL_SYSCONFDIR}/tarven-hemodialysis)
  install(DIRECTORY Reports DESTINATION ${department_folder})
  install(FILES driver/tarvenaux.ini DESTINATION ${department_folder})
  foreach(name Reports tarvenaux.ini)
    install_link(${department_folder}/${name} ${program_folder}/${name})
  endforeach()
  # Whoever copies the folder for another department has them too.
  foreach(name IN LISTS templates_beside_program)
    install(CODE "file(CREATE_LINK Reports/${name} \$ENV{DESTDIR}${department_folder}/${name} SYMBOLIC)")
  endforeach()
else()
  install(DIRECTORY Reports DESTINATION ${program_folder})
  install(FILES driver/tarvenaux.ini DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()
foreach(name IN LISTS templates_beside_program)
  install_link(Reports/${name} ${program_folder}/${name})
endforeach()
foreach(program IN LISTS programs)
  file(RELATIVE_PATH path /${CMAKE_INSTALL_BINDIR} /${program_folder}/${program})
  install_link(${path} ${CMAKE_INSTALL_BINDIR}/${program})
endforeach()

# The face of screens and slips; a distribution has it already.
if(TARVEN_FILES_IN_ETC)
  file(RELATIVE_PATH path ${CMAKE_INSTALL_PREFIX}/${program_folder} ${faces_folder})
  install_link(${path} ${program_folder}/fonts)
else()
  install(FILES ${program_faces} DESTINATION ${program_folder}/fonts)
endif()

# The clerk's manual on paper.
install(FILES ${PROJECT_BINARY_DIR}/manual.pdf DESTINATION ${CMAKE_INSTALL_DOCDIR})
add_dependencies(programs manual_pdf)

# As they lie here, so that what they say of each other leads there.
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# What a desktop shows, and the page that man shows.
string(TIMESTAMP TARVEN_RELEASE_DATE "%Y-%m-%d" UTC)
set(made ${PROJECT_BINARY_DIR}/packaging)
configure_file(packaging/metainfo.xml.in ${made}/org.tarven.hemodialysis.metainfo.xml @ONLY)
foreach(program IN LISTS programs)
  configure_file(packaging/${program}.1.in ${made}/${program}.1 @ONLY)
  install(FILES ${made}/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
install(FILES packaging/tarven-hemodialysis.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${made}/org.tarven.hemodialysis.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/tarven-hemodialysis.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

include(cmake/package.cmake)
