include(CMakePackageConfigHelpers)

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
# What opens no window is found without Qt.
install(TARGETS OvStore OvSuite EXPORT OvStoreTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS OvSettings OvSuiteWidgets EXPORT OvSettingsTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS OvUrlAccess OvSettingsCommands LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS orvane-settings RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY installation/ DESTINATION ${CMAKE_INSTALL_DATADIR}/orvane)
install(DIRECTORY samples DESTINATION ${CMAKE_INSTALL_DATADIR}/orvane)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
foreach(targets OvStoreTargets OvSettingsTargets)
    install(EXPORT ${targets} NAMESPACE OvSettings:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OvSettings)
endforeach()
configure_package_config_file(cmake/OvSettingsConfig.cmake.in OvSettingsConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OvSettings)
write_basic_package_version_file(OvSettingsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OvSettingsConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/OvSettingsConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OvSettings)

# The Debian package: cpack --config BUILD/CPackConfig.cmake
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane-settings)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Settings library of a schematic capture application, with headers and samples")
set(CPACK_PACKAGE_CONTACT "OvSettings developers <ovsettings@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What find_package(OvSettings) asks for.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-base-dev)
include(CPack)
