# What is shipped beside the program, share/bravona: the archive as delivered, the logo, the pictures. The program finds
# it from its own place, ../share/bravona, in the build tree as after installation.

set(BRAVONA_SHARE ${CMAKE_BINARY_DIR}/share/bravona)
set(shipped)

if(TARGET crea_archivio)
    set(archive ${BRAVONA_SHARE}/Database/DBBVEURO.mdb)
    add_custom_command(OUTPUT ${archive}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${BRAVONA_SHARE}/Database
        COMMAND ${CMAKE_COMMAND} -E rm -f ${archive}
        COMMAND crea_archivio ${archive}
        DEPENDS crea_archivio
        COMMENT "Making the archive as delivered"
        VERBATIM)
    list(APPEND shipped ${archive})
endif()

# Files that are shipped as they stand.
file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/share ${CMAKE_SOURCE_DIR}/share/*)
foreach(name IN LISTS files)
    add_custom_command(OUTPUT ${BRAVONA_SHARE}/${name}
        COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/share/${name} ${BRAVONA_SHARE}/${name}
        DEPENDS ${CMAKE_SOURCE_DIR}/share/${name}
        COMMENT "Copying share/${name}"
        VERBATIM)
    list(APPEND shipped ${BRAVONA_SHARE}/${name})
endforeach()

add_custom_target(programma ALL DEPENDS ${shipped})
