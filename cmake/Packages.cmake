# What cpack makes: on Windows an archive and an installer, elsewhere Debian packages. scripts/package
# makes all of them.
include(GNUInstallDirs)
set(KVARNPROG_MAINTAINER "KvarnProg maintainers <kvarnprog@example.com>" CACHE STRING
    "Name and address of who answers for the packages")

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME KvarnProg)
set(CPACK_PACKAGE_VENDOR KvarnProg)
set(CPACK_PACKAGE_CONTACT "${KVARNPROG_MAINTAINER}")
set(CPACK_COMPONENTS_ALL Runtime Development)
if(KVARNPROG_SYMBOLS_APART)
    list(APPEND CPACK_COMPONENTS_ALL Symbols)
endif()
# Whatever the rights are that the builder gives to new files and folders.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# What is the owner's to say about the licence, and the notices of others.
set(kvarnprog_notice "${PROJECT_BINARY_DIR}/packages/copyright")
set(notices)
if(KVARNPROG_BUILD_TOOLS)
    set(notices libcli11-dev nlohmann-json3-dev libpugixml-dev)
endif()
set(NOTICES)
foreach(package IN LISTS notices)
    set(notice "/usr/share/doc/${package}/copyright")
    if(EXISTS "${notice}")
        file(READ "${notice}" text)
        string(APPEND NOTICES "\n---- ${package}\n\n${text}")
    else()
        message(STATUS "Packages will lack the notice ${notice}")
    endif()
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/packages/copyright.in" "${kvarnprog_notice}" @ONLY)

if(WIN32)
    include("${CMAKE_CURRENT_LIST_DIR}/packages/Windows.cmake")
else()
    include("${CMAKE_CURRENT_LIST_DIR}/packages/Debian.cmake")
endif()
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/packages/Generators.cmake")
include(CPack)
