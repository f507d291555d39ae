# A package for those who run programs, with the tool, and one for those who build them.
set(CPACK_GENERATOR DEB)
if(KVARNPROG_SYMBOLS_APART)
    list(APPEND CPACK_GENERATOR TXZ)
    string(TOLOWER "${CMAKE_SYSTEM_NAME}" system)
    set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME
        "KvarnProg-${PROJECT_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR}-symbols")
endif()
set(soname_version "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(runtime_package "libkvarnprog${soname_version}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE kvarnprog)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${runtime_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_LIST_DIR}/triggers")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "The shared library, which finds, reads and writes the programs'
settings, code files, project folders and road alignments, and kvarnio, which
does so on the command line.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkvarnprog-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "What a program needs to be built with the library: its headers,
and its files for CMake and pkg-config.")

# Debian's documents: in the packages, and not in what is installed otherwise.
include("${CMAKE_CURRENT_LIST_DIR}/../Gzip.cmake")
string(TIMESTAMP CHANGED "%a, %d %b %Y %H:%M:%S +0000" UTC) # or $SOURCE_DATE_EPOCH
set(documents "${PROJECT_BINARY_DIR}/packages")
configure_file("${CMAKE_CURRENT_LIST_DIR}/changelog.in" "${documents}/changelog" @ONLY)
kvarnprog_gzip("${documents}/changelog" "${documents}/changelog.Debian.gz")
kvarnprog_gzip("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${documents}/changelog.gz")
foreach(component Runtime Development)
    string(TOUPPER "${component}" upper)
    install(FILES "${kvarnprog_notice}" "${documents}/changelog.Debian.gz"
        "${documents}/changelog.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}"
        COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
