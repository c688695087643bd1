# Draws the pictures of wizard/art/ at the sizes that the window and the desktop show, and compiles them into desktop_qt
# as :/art/side.png and :/art/icon_16.png to :/art/icon_512.png.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icon_sizes 16 22 24 32 48 64 128 256 512)
set(drawn_art ${CMAKE_BINARY_DIR}/art)
file(MAKE_DIRECTORY ${drawn_art})

function(draw picture png width height)
  set(svg ${CMAKE_SOURCE_DIR}/wizard/art/${picture}.svg)
  add_custom_command(
    OUTPUT ${drawn_art}/${png}
    COMMAND ${RSVG_CONVERT} --width ${width} --height ${height} --output ${drawn_art}/${png} ${svg}
    DEPENDS ${svg} VERBATIM)
endfunction()
draw(side side.png 600 1800)
set(pngs side.png)
foreach(size ${icon_sizes})
  draw(icon icon_${size}.png ${size} ${size})
  list(APPEND pngs icon_${size}.png)
endforeach()

list(TRANSFORM pngs REPLACE ".+" "<file>\\0</file>" OUTPUT_VARIABLE listed)
list(JOIN listed "" listed)
file(CONFIGURE OUTPUT ${drawn_art}/art.qrc CONTENT "<RCC><qresource prefix=\"/art\">${listed}</qresource></RCC>\n")
list(TRANSFORM pngs PREPEND ${drawn_art}/)
# Version 1 of the format contains no file times, so that the same sources give the same bytes.
add_custom_command(
  OUTPUT ${drawn_art}/art_resource.cpp
  COMMAND Qt6::rcc --name art --format-version 1 --no-compress --output ${drawn_art}/art_resource.cpp
          ${drawn_art}/art.qrc
  DEPENDS ${pngs} ${drawn_art}/art.qrc VERBATIM)
set_source_files_properties(${drawn_art}/art_resource.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON COMPILE_OPTIONS -w)
target_sources(desktop_qt PRIVATE ${drawn_art}/art_resource.cpp)
