# The resource scripts of the settings pages, which tools/settingspages makes of their list whenever
# the library is built. The program runs on the machine that builds: a cross build makes it with that
# machine's own compiler, and without the variables that name the target's (a configuring "ctest
# --build-and-test" leaves them in the environment of the build it starts).
set(settingspages_folder "${CMAKE_CURRENT_BINARY_DIR}/settingspages")
set(settingspages_source "${CMAKE_CURRENT_LIST_DIR}/../tools/settingspages")
if(CMAKE_CROSSCOMPILING)
    include(ExternalProject)
    set(settingspages_program "${settingspages_folder}/host/settingspages")
    ExternalProject_Add(settingspages
        SOURCE_DIR "${settingspages_source}"
        PREFIX "${settingspages_folder}"
        BINARY_DIR "${settingspages_folder}/host"
        CONFIGURE_COMMAND "${CMAKE_COMMAND}" -E env --unset=CXX --unset=CXXFLAGS --unset=LDFLAGS
            --unset=CMAKE_TOOLCHAIN_FILE
            "${CMAKE_COMMAND}" -G "${CMAKE_GENERATOR}" -DCMAKE_BUILD_TYPE=Release
            -S <SOURCE_DIR> -B <BINARY_DIR>
        BUILD_COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR>
        INSTALL_COMMAND ""
        BUILD_ALWAYS ON # the list may have changed
        BUILD_BYPRODUCTS "${settingspages_program}")
else()
    add_subdirectory("${settingspages_source}" "${settingspages_folder}/host")
    set(settingspages_program "$<TARGET_FILE:settingspages>")
endif()
set(settingspages_scripts "${settingspages_folder}/pages_sv.rc" "${settingspages_folder}/pages_no.rc")
add_custom_command(OUTPUT ${settingspages_scripts}
    COMMAND "${settingspages_program}" scripts "${settingspages_folder}"
    DEPENDS settingspages "${settingspages_program}" VERBATIM)
add_custom_target(settingspages_made DEPENDS ${settingspages_scripts})
