# format, format-check and tidy: over the whole tree, whatever is built.

find_program(BRAVONA_CLANG_FORMAT NAMES clang-format-14 clang-format)
find_program(BRAVONA_CLANG_TIDY NAMES clang-tidy-14 clang-tidy)
find_program(BRAVONA_RUN_CLANG_TIDY NAMES run-clang-tidy-14 run-clang-tidy)
find_program(BRAVONA_GCOVR gcovr)

set(format ${CMAKE_SOURCE_DIR}/scripts/format.sh)
if(BRAVONA_CLANG_FORMAT)
    add_custom_target(format COMMAND ${format} USES_TERMINAL)
    add_custom_target(format-check COMMAND ${format} --check USES_TERMINAL)
endif()
if(BRAVONA_CLANG_TIDY AND BRAVONA_RUN_CLANG_TIDY)
    add_custom_target(tidy
        COMMAND ${BRAVONA_RUN_CLANG_TIDY} -quiet -extra-arg=-Wno-unknown-warning-option -clang-tidy-binary ${BRAVONA_CLANG_TIDY} -p ${CMAKE_BINARY_DIR}
                "${CMAKE_SOURCE_DIR}/(src|tools|tests|bench|fuzz)/.*\\.cpp"
        USES_TERMINAL VERBATIM)
endif()
if(BRAVONA_GCOVR)
    add_custom_target(coverage-report
        COMMAND ${BRAVONA_GCOVR} --root ${CMAKE_SOURCE_DIR} --filter ${CMAKE_SOURCE_DIR}/src/ --print-summary
                ${CMAKE_BINARY_DIR}
        USES_TERMINAL VERBATIM)
endif()
