# Runs during the installation: makes the commands in bin/, and writes the list of the installed files, as sha256sum
# does. The program takes this list as the sign that it is installed, so it is written last and appears as a whole. The
# front programs are not in it, because users start those that are installed.
set(prefix "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
file(MAKE_DIRECTORY "${prefix}/bin")
foreach(command ${commands})
  file(CREATE_LINK ../lib/discwright/${command} "${prefix}/bin/${command}" SYMBOLIC)
  message(STATUS "Installing: ${prefix}/bin/${command}")
endforeach()

list(SORT shipped)
set(list "")
foreach(file ${shipped})
  file(SHA256 "${prefix}/lib/discwright/${file}" digest)
  string(APPEND list "${digest}  ${file}\n")
endforeach()
file(WRITE "${prefix}/lib/discwright/installed.list.new" "${list}")
file(CHMOD "${prefix}/lib/discwright/installed.list.new" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(RENAME "${prefix}/lib/discwright/installed.list.new" "${prefix}/lib/discwright/installed.list")
