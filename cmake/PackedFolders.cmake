# Run by CPack before it packs. It has made the topmost folders itself, under the umask of the one who packs.
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/*)
foreach(path IN ITEMS ${CPACK_TEMPORARY_DIRECTORY} LISTS entries)
    if(IS_DIRECTORY ${path} AND NOT IS_SYMLINK ${path})
        file(CHMOD ${path} DIRECTORY_PERMISSIONS
            OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
endforeach()
