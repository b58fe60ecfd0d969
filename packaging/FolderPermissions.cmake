# Run by cpack on what it is about to pack: the folders were made under the umask of whoever packs.
file(GLOB_RECURSE everything LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(path ${everything})
  if(IS_DIRECTORY "${path}" AND NOT IS_SYMLINK "${path}")
    file(CHMOD "${path}" PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
