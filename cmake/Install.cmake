# The installed package: headers, library, run-time libraries, and what find_package reads.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KvarnProg")
install(TARGETS kvarnprog EXPORT KvarnProgTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kvarnprog")
if(WIN32)
    install(FILES ${kvarnprog_runtime} DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(EXPORT KvarnProgTargets NAMESPACE KvarnProg:: DESTINATION "${package_folder}")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KvarnProgConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KvarnProgConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KvarnProgConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KvarnProgConfig.cmake"
    "${PROJECT_BINARY_DIR}/KvarnProgConfigVersion.cmake" DESTINATION "${package_folder}")
