# What a Debian package has and an installation from the sources has not: a changelog beside the copyright, and both it
# and the manual pages compressed. Run by cpack for all components at once, before it packs them.
find_program(GZIP gzip REQUIRED)

function(compress file)
  # Without name and time: the same input gives the same package.
  execute_process(COMMAND "${GZIP}" -9nf "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(package IN ITEMS program:brovanta server:brovanta-server)
  string(REPLACE ":" ";" package "${package}")
  list(GET package 0 component)
  list(GET package 1 name)
  set(root "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr")
  if(IS_DIRECTORY "${root}")
    set(changelog "${root}/share/doc/${name}/changelog.Debian")
    configure_file("${CMAKE_CURRENT_LIST_DIR}/changelog.${name}" "${changelog}" COPYONLY)
    file(GLOB pages "${root}/share/man/man*/*.[1-9]")
    foreach(file IN LISTS changelog pages)
      compress("${file}")
    endforeach()
  endif()
endforeach()
