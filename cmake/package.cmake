# The Debian package, which tools/package makes. What an administrator may change is a configuration file to dpkg, which
# keeps his changes and asks when ours differ.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarven-hemodialysis)
set(CPACK_PACKAGE_VENDOR "The TARVEN Hemodialysis developers")
set(CPACK_PACKAGE_CONTACT "The TARVEN Hemodialysis developers <support@tarven.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "charging workstation of a hemodialysis unit")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "A clerk signs on, finds a patient, keys services, medicines, supplies and
doctors' fees in a grid that prices them, saves, and hands over the slip.
.
A trial hospital in one file comes with it; a hospital's own SQL Server is
reached through ODBC.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Configuration lies outside of the prefix.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The face of screens and slips; the driver to a hospital's server.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2 | fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, tdsodbc")

# What dpkg keeps of an administrator's, a line each.
file(GLOB templates RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS Reports/*)
set(etc /etc/tarven-hemodialysis)
list(TRANSFORM templates PREPEND ${etc}/)
list(JOIN templates "\n" conffiles)
file(WRITE ${made}/conffiles "${conffiles}\n${etc}/tarvenaux.ini\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${made}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

if(TARVEN_FILES_IN_ETC)
  # Debian wants what tells of a package under its name, and packed without the moment at which it was.
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  configure_file(packaging/changelog.in ${made}/changelog @ONLY)
  install(CODE "
    set(root \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX})
    set(about \${root}/${CMAKE_INSTALL_DOCDIR})
    file(COPY_FILE ${PROJECT_SOURCE_DIR}/packaging/copyright \${about}/copyright)
    file(COPY_FILE ${made}/changelog \${about}/changelog)
    file(GLOB pages \${root}/${CMAKE_INSTALL_MANDIR}/man1/*.1)
    execute_process(COMMAND gzip -9nf \${about}/changelog \${pages} COMMAND_ERROR_IS_FATAL ANY)")
endif()
include(CPack)
