# Run at every build (cmake -P): writes OUTPUT, a header that defines
# VIRELA_SOURCE_REVISION as `git describe` of SOURCE_DIR ("unknown" outside a
# git checkout). The file is replaced only when the revision changed, so an
# unchanged tree recompiles nothing.
execute_process(
    COMMAND git -C "${SOURCE_DIR}" describe --always --dirty --abbrev=12
    OUTPUT_VARIABLE revision
    RESULT_VARIABLE result
    OUTPUT_STRIP_TRAILING_WHITESPACE
    ERROR_QUIET)
if(NOT result EQUAL 0 OR revision STREQUAL "")
    set(revision "unknown")
endif()
file(WRITE "${OUTPUT}.new" "#pragma once\n#define VIRELA_SOURCE_REVISION \"${revision}\"\n")
file(COPY_FILE "${OUTPUT}.new" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.new")
