# Precompiled headers: system headers that many sources of a kind include, compiled once for all of them.
#
#     orv_precompile(TARGET standard|qt|test|qt_test|none)
#
# A source still includes what it uses.
set(orv_headers_standard
  <algorithm> <array> <atomic> <charconv> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <mutex> <optional>
  <set> <span> <sstream> <string> <string_view> <thread> <tuple> <utility> <vector>)
set(orv_headers_test ${orv_headers_standard} <cstdlib> <fstream> <random> <gtest/gtest.h>)
set(orv_headers_qt ${orv_headers_standard}
  <QApplication> <QBoxLayout> <QCheckBox> <QDialog> <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMenu> <QMouseEvent>
  <QPainter> <QPushButton> <QString> <QStringList> <QTimer> <QWheelEvent> <QWidget>)
set(orv_headers_qt_test ${orv_headers_qt} ${orv_headers_test})

add_compile_options(-Wno-error=invalid-pch)

# What the target of the headers and those that use them are compiled with alike: what is tested is optimised, the tests
# are not, and Qt wants position-independent code of programs too.
function(orv_options_of_kind target kind)
  # As the flags of SDL, RtMidi and FluidSynth do
  target_compile_options(${target} PRIVATE -pthread)
  if(kind MATCHES qt)
    find_package(Qt6 REQUIRED COMPONENTS Widgets)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS)
    target_link_libraries(${target} PRIVATE Qt6::Widgets)
  endif()
  if(kind MATCHES test)
    target_compile_options(${target} PRIVATE -O0 -fPIC)
    target_link_libraries(${target} PRIVATE GTest::gtest)
  endif()
endfunction()

function(orv_precompile target kind)
  if(kind STREQUAL none)
    return()
  endif()
  set(owner orv_precompiled_${kind})
  if(NOT TARGET ${owner})
    file(WRITE ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp "")
    add_library(${owner} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp)
    target_precompile_headers(${owner} PRIVATE ${orv_headers_${kind}})
    orv_options_of_kind(${owner} ${kind})
  endif()
  orv_options_of_kind(${target} ${kind})
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()
