# The installed package: headers, library, run-time libraries, and what find_package and pkg-config
# read. A package for those who run programs has the component Runtime, one for those who build them
# Development besides.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include("${CMAKE_CURRENT_LIST_DIR}/Serves.cmake")

set(headers_folder "${CMAKE_INSTALL_INCLUDEDIR}/kvarnprog")
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KvarnProg")
install(TARGETS kvarnprog EXPORT KvarnProgTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime
        NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development
    FILE_SET HEADERS DESTINATION "${headers_folder}" COMPONENT Development
    INCLUDES DESTINATION "${headers_folder}") # file sets say it to CMake 3.23 and later alone
if(WIN32)
    install(FILES ${kvarnprog_runtime} DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime)
endif()
install(EXPORT KvarnProgTargets NAMESPACE KvarnProg:: DESTINATION "${package_folder}"
    COMPONENT Development)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KvarnProgConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KvarnProgConfig.cmake" INSTALL_DESTINATION "${package_folder}")
# The package file looks at the compiler itself, and says what it misses.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KvarnProgConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion ARCH_INDEPENDENT)
install(FILES "${PROJECT_BINARY_DIR}/KvarnProgConfig.cmake"
    "${PROJECT_BINARY_DIR}/KvarnProgConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/KvarnProgDlls.cmake"
    DESTINATION "${package_folder}" COMPONENT Development)

file(RELATIVE_PATH prefix_from_pc "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
get_target_property(library_name kvarnprog OUTPUT_NAME)
if(NOT library_name)
    set(library_name kvarnprog)
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/kvarnprog.pc.in" "${PROJECT_BINARY_DIR}/kvarnprog.pc"
    @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kvarnprog.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
