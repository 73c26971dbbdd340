# Lays the data of the program out beside its executables.
file(GLOB OSTRINKA_CATALOGUES CONFIGURE_DEPENDS resources/*.lang)
add_custom_target(program_folder ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${OSTRINKA_APP}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${OSTRINKA_CATALOGUES} ${OSTRINKA_APP}
  VERBATIM)
add_custom_command(OUTPUT ${OSTRINKA_APP}/psc.bin
  COMMAND ${CMAKE_COMMAND} -E make_directory ${OSTRINKA_APP}
  COMMAND python3 ${CMAKE_SOURCE_DIR}/tools/make_psc.py ${CMAKE_SOURCE_DIR}/resources/postal_codes.txt ${OSTRINKA_APP}/psc.bin
  DEPENDS tools/make_psc.py resources/postal_codes.txt VERBATIM)
add_custom_target(postal_table ALL DEPENDS ${OSTRINKA_APP}/psc.bin)
# Skins and icons are drawn by tools; a stamp tells that they are newer than what draws them.
foreach(art skins icons)
  file(GLOB art_sources CONFIGURE_DEPENDS tools/make_${art}.py tools/drawing*.py tools/skin*.py tools/icon*.py resources/skins/*.ini resources/skin_images.txt)
  add_custom_command(OUTPUT ${OSTRINKA_APP}/.${art}
    COMMAND python3 ${CMAKE_SOURCE_DIR}/tools/make_${art}.py ${OSTRINKA_APP}
    COMMAND ${CMAKE_COMMAND} -E touch ${OSTRINKA_APP}/.${art}
    DEPENDS ${art_sources} VERBATIM)
  add_custom_target(${art} ALL DEPENDS ${OSTRINKA_APP}/.${art})
endforeach()
