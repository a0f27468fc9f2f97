# What `cmake --install` puts where on Linux, and the Debian package that CPack makes of it.

# As in Debian's own packages. In a folder of "lib" itself CPack would take our library for a public one, and write
# maintainer scripts that make it known to all programs.
if(CMAKE_LIBRARY_ARCHITECTURE AND NOT DEFINED CMAKE_INSTALL_LIBDIR)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of the libraries")
endif()
include(GNUInstallDirs)


# The program looks for its translations and for the desktop's helper in its own folder, so all three share one that
# is theirs alone; a link leads there from the search path.
set(program_folder ${CMAKE_INSTALL_LIBDIR}/kestrum)
set(linux_resources ${PROJECT_SOURCE_DIR}/resources/linux)
set(generated ${PROJECT_BINARY_DIR}/CMakeFiles/install)
set(id example.quillon.Kestrum)
# Debian looks for them under the package's name, not the project's.
set(documents ${CMAKE_INSTALL_DATADIR}/doc/kestrum)

# CMake makes folders under the umask of the one who installs, so that nobody else might get at what is in them. What is
# there already is left as it is.
set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(icon_sizes 16 22 24 32 48 64 128 256)
list(TRANSFORM icon_sizes REPLACE "(.+)" "${icon_theme}/\\1x\\1/apps" OUTPUT_VARIABLE icon_folders)
set(folders ${CMAKE_INSTALL_BINDIR} ${program_folder}/languages ${CMAKE_INSTALL_DATADIR}/applications
    ${CMAKE_INSTALL_DATADIR}/metainfo ${icon_folders} ${icon_theme}/scalable/apps ${CMAKE_INSTALL_MANDIR}/man1 ${documents})
install(CODE "set(folders \"${folders}\")")
install(CODE [[
    foreach(folder IN LISTS folders)
        set(path $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${folder})
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
install(FILES ${linux_resources}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size IN LISTS icon_sizes)
    install(FILES ${linux_resources}/icons/${size}.png DESTINATION ${icon_theme}/${size}x${size}/apps RENAME ${id}.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/resources/svg/main.svg DESTINATION ${icon_theme}/scalable/apps RENAME ${id}.svg)

# Installs a file compressed, as Debian wants its manual pages and change logs.
function(install_compressed source folder)
    get_filename_component(name ${source} NAME)
    set(compressed ${generated}/${name}.gz)
    execute_process(COMMAND gzip --best --no-name --stdout ${source} OUTPUT_FILE ${compressed}
        COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    install(FILES ${compressed} DESTINATION ${folder})
endfunction()

configure_file(${linux_resources}/kestrum.1.in ${generated}/kestrum.1 @ONLY)
install_compressed(${generated}/kestrum.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(${linux_resources}/changelog ${documents})
install(FILES ${linux_resources}/copyright DESTINATION ${documents})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrum)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Kestrum authors <support@quillon.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://kestrum.quillon.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "computes the digest of one file at a time")
set(CPACK_PACKAGE_DESCRIPTION
    "Kestrum is a desktop program that computes the digest of a file with one of\n\
32 hash and checksum algorithms and shows it as hexadecimal and as Base64\n\
text, ready to copy. While it runs it shows how far it is and how long it will\n\
still take. It offers itself in the context menu of the file managers.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/PackedFolders.cmake)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded or called at run time, where they are there, so that no dependency shows. The plug-ins know the proxy of GNOME
# and of KDE.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "hicolor-icon-theme, libcurl4, libproxy1v5, libproxy1-plugin-gsettings, libproxy1-plugin-kconfig, qtwayland5, xdg-utils")
include(CPack)
