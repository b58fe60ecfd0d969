# Half of what a compiler does with this tree is reading the headers of Qt, GoogleTest and the standard library.
# The presets that CI builds read them once; elsewhere each file is compiled alone, which finds a forgotten include.
# Never a header of this project: the rooms would see each other.
option(TOLVANE_PRECOMPILE "Precompile the headers of the libraries" OFF)

set(TOLVANE_STANDARD_HEADERS <algorithm> <array> <cmath> <filesystem> <functional> <map> <memory> <optional> <set>
  <span> <string> <string_view> <utility> <vector>)
set(TOLVANE_QT_HEADERS <QAction> <QApplication> <QClipboard> <QComboBox> <QDialog> <QDir> <QFileInfo> <QHBoxLayout>
  <QKeyEvent> <QLabel> <QLineEdit> <QMenu> <QPainter> <QPushButton> <QScreen> <QScrollBar> <QSettings> <QTabWidget>
  <QTimer> <QVBoxLayout>)

# tolvane_precompiled(Name LIBRARY... HEADERS <...>...): a set of headers, in which targets take part by
# tolvane_precompile. They must be compiled with the same options and link the same libraries, at least.
function(tolvane_precompiled name)
  cmake_parse_arguments(PARSE_ARGV 1 set "" "" HEADERS)
  if(NOT TOLVANE_PRECOMPILE)
    return()
  endif()
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "// What is compiled ahead needs a file to be compiled with.\n" @ONLY)
  add_library(${name} STATIC ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${set_UNPARSED_ARGUMENTS} tolvane_warnings)
  target_precompile_headers(${name} PRIVATE ${set_HEADERS})
endfunction()

function(tolvane_precompile target name)
  if(TARGET ${name})
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()
