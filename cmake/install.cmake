# Rules for `make install` and `make package`. The component `program` is the program folder, below lib/discwright. The
# component `desktop` is everything that makes it an installed program: the list of its files, by which it knows that it
# is installed, its commands, and what the desktop reads.
set(identifier org.example.discwright)
set(home lib/discwright)
set(front_programs discwright-build discwright)
set(tools CreateDsk dfl mkisofs)
get_property(data GLOBAL PROPERTY shipped_data)

# The built files are installed without a change, so that what is installed is what was tested.
foreach(program ${front_programs} ${tools})
  install(PROGRAMS $<TARGET_FILE:${program}> DESTINATION ${home} COMPONENT program)
endforeach()
foreach(file ${data})
  cmake_path(GET file PARENT_PATH folder)
  install(FILES ${CMAKE_BINARY_DIR}/program/${file} DESTINATION ${home}/${folder} COMPONENT program)
endforeach()

install(CODE "set(shipped \"${tools};${data}\")\nset(commands \"${front_programs}\")" COMPONENT desktop)
install(SCRIPT cmake/installed.cmake COMPONENT desktop)
install(FILES LICENSE NOTICE DESTINATION share/doc/discwright COMPONENT desktop)
install(FILES packaging/${identifier}.desktop DESTINATION share/applications COMPONENT desktop)
install(FILES packaging/${identifier}.metainfo.xml DESTINATION share/metainfo COMPONENT desktop)
set(icons share/icons/hicolor)
install(FILES wizard/art/icon.svg DESTINATION ${icons}/scalable/apps RENAME ${identifier}.svg COMPONENT desktop)
foreach(size ${icon_sizes})
  install(FILES ${drawn_art}/icon_${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME ${identifier}.png
          COMPONENT desktop)
endforeach()
