# Every target of this project links tolvane_warnings PRIVATE, so that a warning is an error everywhere.
add_library(tolvane_warnings INTERFACE)
target_compile_options(tolvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
# g++ 12 sees overlapping copies in "text" + std::string where there are none (its bug 105651, mended in 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tolvane_warnings INTERFACE -Wno-restrict)
endif()
# Sources are named from the root of the tree: #include "core/text/Ranks.h" says the room.
target_include_directories(tolvane_warnings INTERFACE ${PROJECT_SOURCE_DIR})
