# What `cmake --install` puts where on Linux, and the Debian package that CPack makes of it.

# As in Debian's own packages. In a folder of "lib" itself CPack would take our library for a public one, and write
# maintainer scripts that make it known to all programs.
if(CMAKE_LIBRARY_ARCHITECTURE)
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
set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 22 24 32 48 64 128 256)
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
# Whatever the packer's umask is.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time, where they are there, so that no dependency shows.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libcurl4, libproxy1v5, qtwayland5")
include(CPack)
