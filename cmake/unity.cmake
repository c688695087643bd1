# Configures unity builds, in which several sources are compiled as one. They are for the presets that build everything
# once, in which nobody edits sources.
# Each of the following sources uses a name that another file of its room uses for something else, so each is compiled
# by itself. When a new pair of files clashes, add one of the two here.
set(compiled_alone
    host/posix/script.cpp host/posix/source_tree.cpp host/win32/runtime_calls.cpp
    settings/session_table.cpp settings/win9x_info.cpp
    tools/mkisofs/tree_reader.cpp
    util/copy_nt.cpp
    wizard/summary.cpp
    tests/createdsk/disk_image_test.cpp
    tests/end_to_end/odd_places_test.cpp tests/end_to_end/running_program.cpp
    tests/end_to_end/sessions_test.cpp tests/end_to_end/trees.cpp
    tests/host/part_file_test.cpp tests/host/shell_operations_test.cpp tests/host/source_tree_test.cpp
    tests/host/whole_file_test.cpp
    tests/host/posix/copy_file_test.cpp tests/host/posix/hard_links_test.cpp tests/host/posix/part_file_test.cpp
    tests/host/win32/files_test.cpp tests/host/win32/list_folder_test.cpp tests/host/win32/profile_test.cpp
    tests/settings/key_files_test.cpp tests/settings/session_check_test.cpp tests/settings/session_test.cpp
    tests/settings/shipped_templates_test.cpp)

set(folders ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tools/mkisofs)
if(DISCWRIGHT_TESTS)
  list(APPEND folders ${CMAKE_SOURCE_DIR}/tests)
endif()
list(TRANSFORM compiled_alone PREPEND ${CMAKE_SOURCE_DIR}/)
set_source_files_properties(${compiled_alone} DIRECTORY ${folders} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

# The tests link single objects of these libraries, together with a replacement of the host. So every source of these
# libraries must stay an object of its own.
set(taken_in_parts host)
if(DISCWRIGHT_TESTS AND WIN32)
  list(APPEND taken_in_parts gmock_main)
endif()
set_target_properties(${taken_in_parts} PROPERTIES UNITY_BUILD OFF)
