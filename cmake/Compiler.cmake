# Compiler cache, linker, warnings and sanitizers, the same for every target of the project.

find_program(BRAVONA_CCACHE ccache)
if(BRAVONA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Paths are hashed relative to the tree, so that several checkouts share one cache; precompiled headers need the
    # sloppiness to be cached at all.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${BRAVONA_CCACHE})
endif()

find_program(BRAVONA_LLD ld.lld)
if(BRAVONA_LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_library(bravona_flags INTERFACE)
target_compile_options(bravona_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
# No fused multiplications: a double is the same on every processor.
target_compile_options(bravona_flags INTERFACE -ffp-contract=off)
if(BRAVONA_WERROR)
    target_compile_options(bravona_flags INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports overlapping copies inside std::string itself once it optimizes.
    target_compile_options(bravona_flags INTERFACE -Wno-restrict)
    # The same strings, moved about under optimization: a bound that cannot be is reported as an overflow.
    target_compile_options(bravona_flags INTERFACE $<$<CONFIG:Release>:-Wno-stringop-overflow>)
    # Relative names in the precompiled header's own lookup; harmless with a cache in front.
    target_compile_options(bravona_flags INTERFACE -fpch-preprocess)
else()
    # Without it the precompiled header carries its time of making, and no cache ever hits.
    target_compile_options(bravona_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

if(BRAVONA_SANITIZE)
    add_compile_options(-fsanitize=${BRAVONA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${BRAVONA_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The instrumentation hides initializations from this warning.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()
