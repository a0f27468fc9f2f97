# What `cmake --install` puts where on Linux; debian/ packs the same files.

include(GNUInstallDirs)
# Where nobody says otherwise GNUInstallDirs takes the project's name, which has a capital.
if(CMAKE_INSTALL_DOCDIR STREQUAL "${CMAKE_INSTALL_DATAROOTDIR}/doc/${PROJECT_NAME}")
    set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/kestrum)
endif()

# The program looks for its translations and for the desktop's helper in its own folder, so all three share one that
# is theirs alone; a link leads there from the search path.
set(program_folder ${CMAKE_INSTALL_LIBDIR}/kestrum)
set(linux_resources ${PROJECT_SOURCE_DIR}/resources/linux)
set(generated ${PROJECT_BINARY_DIR}/CMakeFiles/install)
set(id example.quillon.Kestrum)

# CMake makes folders under the umask of the one who installs, so that nobody else might get at what is in them. What is
# there already is left as it is.
set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(icon_sizes 16 22 24 32 48 64 128 256)
list(TRANSFORM icon_sizes REPLACE "(.+)" "${icon_theme}/\\1x\\1/apps" OUTPUT_VARIABLE icon_folders)
set(folders ${CMAKE_INSTALL_BINDIR} ${program_folder}/languages ${CMAKE_INSTALL_DATADIR}/applications
    ${CMAKE_INSTALL_DATADIR}/metainfo ${icon_folders} ${icon_theme}/scalable/apps ${icon_theme}/symbolic/apps
    ${CMAKE_INSTALL_MANDIR}/man1 ${CMAKE_INSTALL_DOCDIR}/images)
install(CODE "set(folders \"${folders}\")")
install(CODE [[
    foreach(folder IN LISTS folders)
        cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE path)
        string(PREPEND path "$ENV{DESTDIR}")
        set(missing)
        while(NOT EXISTS ${path})
            list(PREPEND missing ${path})
            cmake_path(GET path PARENT_PATH path)
        endwhile()
        foreach(path IN LISTS missing)
            file(MAKE_DIRECTORY ${path})
            file(CHMOD ${path} DIRECTORY_PERMISSIONS
                OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
        endforeach()
    endforeach()]])

install(TARGETS kestrum RUNTIME DESTINATION ${program_folder})
install(TARGETS QxShellHelper LIBRARY DESTINATION ${program_folder})
get_target_property(language_files kestrum_languages KESTRUM_LANGUAGE_FILES)
install(FILES ${language_files} DESTINATION ${program_folder}/languages)

# Relative, so that it holds under any prefix.
file(RELATIVE_PATH link_target ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/kestrum/kestrum)
file(MAKE_DIRECTORY ${generated})
file(CREATE_LINK ${link_target} ${generated}/kestrum SYMBOLIC)
install(FILES ${generated}/kestrum DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES ${linux_resources}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
# The change log has the date of each version.
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md release REGEX "^## [0-9]" LIMIT_COUNT 1)
if(NOT release MATCHES "^## ([0-9.]+) \\(([-0-9]+)\\)$" OR NOT PROJECT_VERSION VERSION_EQUAL CMAKE_MATCH_1)
    message(FATAL_ERROR "The first version in CHANGELOG.md has to be ${PROJECT_VERSION}, with its date.")
endif()
set(release_date ${CMAKE_MATCH_2})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
# With the archive a part of Crypto++ is a part of the program.
set(project_license "MIT AND BSL-1.0")
if(KESTRUM_SHARED_CRYPTOPP)
    set(project_license "MIT")
endif()
configure_file(${linux_resources}/${id}.metainfo.xml.in ${generated}/${id}.metainfo.xml @ONLY)
install(FILES ${generated}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size IN LISTS icon_sizes)
    install(FILES ${linux_resources}/icons/${size}.png DESTINATION ${icon_theme}/${size}x${size}/apps RENAME ${id}.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/resources/svg/main.svg DESTINATION ${icon_theme}/scalable/apps RENAME ${id}.svg)
install(FILES ${PROJECT_SOURCE_DIR}/resources/svg/main-symbolic.svg
    DESTINATION ${icon_theme}/symbolic/apps RENAME ${id}-symbolic.svg)

configure_file(${linux_resources}/kestrum.1.in ${generated}/kestrum.1 @ONLY)
install(FILES ${generated}/kestrum.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES CHANGELOG.md docs/user-guide.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR})
