# The archive and the installer are named for the compiler whose programs the DLL serves.
set(CPACK_GENERATOR "ZIP;NSIS")
string(REGEX MATCH "^[0-9]+" compiler_version "${CMAKE_CXX_COMPILER_VERSION}")
string(TOLOWER "${CMAKE_CXX_COMPILER_ID}" compiler)
string(REPLACE "gnu" "gcc" compiler "${compiler}")
set(CPACK_PACKAGE_FILE_NAME "KvarnProg-${PROJECT_VERSION}-windows-x64-mingw-w64-${compiler}${compiler_version}-posix-seh")

# cpack makes one archive of each group.
foreach(component RUNTIME DEVELOPMENT)
    set(CPACK_COMPONENT_${component}_GROUP package)
endforeach()
set(CPACK_ARCHIVE_PACKAGE_FILE_NAME "${CPACK_PACKAGE_FILE_NAME}")
set(CPACK_COMPONENT_SYMBOLS_GROUP symbols)
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME "${CPACK_PACKAGE_FILE_NAME}-symbols")

set(CPACK_PACKAGE_INSTALL_DIRECTORY KvarnProg)
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY KvarnProg)
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_NSIS_PACKAGE_NAME "KvarnProg ${PROJECT_VERSION}")
set(CPACK_NSIS_DISPLAY_NAME "KvarnProg ${PROJECT_VERSION}")
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_COMPRESSOR "/SOLID lzma")
set(CPACK_NSIS_DEFINES "SetDateSave off") # the same bytes whenever it is made
if(CMAKE_CROSSCOMPILING) # Debian's NSIS can make it a 64-bit program, as the library is
    string(APPEND CPACK_NSIS_DEFINES "\nTarget amd64-unicode")
endif()
set(CPACK_RESOURCE_FILE_LICENSE "${kvarnprog_notice}")

# The run-time libraries go with their licences.
set(notices_folder "${CMAKE_INSTALL_DATADIR}/doc/kvarnprog")
install(FILES "${kvarnprog_notice}" DESTINATION "${notices_folder}" COMPONENT Runtime
    RENAME copyright.txt)
function(kvarnprog_install_notice file name)
    if(EXISTS "${file}")
        install(FILES "${file}" DESTINATION "${notices_folder}" COMPONENT Runtime RENAME "${name}")
    else()
        message(STATUS "Packages will lack the notice ${file}")
    endif()
endfunction()
kvarnprog_install_notice(/usr/share/common-licenses/GPL-3 GPL-3.txt)
kvarnprog_install_notice(/usr/share/doc/gcc-mingw-w64-base/copyright gcc-libraries.txt)
kvarnprog_install_notice(/usr/share/doc/mingw-w64-common/copyright mingw-w64-winpthreads.txt)
