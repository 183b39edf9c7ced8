# The Debian package: `cpack` in a build folder of the preset "package".

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_CONTACT "The ZORVA USB diagnostics maintainers <maintainers@localhost>" CACHE STRING
    "Maintainer of the package, name and address")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "diagnostics of USB host controllers through CIM")
set(CPACK_PACKAGE_DESCRIPTION
    "Runs a diagnostic test on the USB host controllers of this machine and
reports every USB device: from the command line (usbhcdiag), or through CIM,
the model that management servers speak.
.
The package holds a small CIM server for this machine (cimhost) with the
diagnostics provider in it, so that nothing else needs to be installed, and
the command that registers the diagnostics with an OpenPegasus server.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "logrotate, sblim-wbemcli")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_LIST_DIR}/conffiles
    ${CMAKE_CURRENT_LIST_DIR}/postrm)

install(FILES ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
zorva_install_compressed(${CMAKE_INSTALL_DOCDIR} ${CMAKE_CURRENT_LIST_DIR}/changelog)

include(CPack)
