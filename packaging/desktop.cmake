# What puts the planner into the application menu: entry, description, icon.
install(FILES ${BROVANTA_APP_ID}.desktop
  DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/applications" COMPONENT program)
configure_file(${BROVANTA_APP_ID}.metainfo.xml.in ${BROVANTA_APP_ID}.metainfo.xml @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${BROVANTA_APP_ID}.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/metainfo" COMPONENT program)

set(icons "${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor")
set(picture "${CMAKE_SOURCE_DIR}/res/icon_128_program.svg")
install(FILES "${picture}" DESTINATION "${icons}/scalable/apps" RENAME ${BROVANTA_APP_ID}.svg
  COMPONENT program)

# The sizes that menus and task bars ask for, for those that draw no SVG. A program built for another machine cannot draw
# here; then the SVG has to do.
if(NOT CMAKE_CROSSCOMPILING)
  add_executable(brovanta_draw_icon draw_icon.cpp)
  target_link_libraries(brovanta_draw_icon PRIVATE brovanta_flags Qt6::Gui Qt6::Svg)
  set(drawn "")
  foreach(size IN ITEMS 16 24 32 48 64 128 256)
    set(source "${picture}")
    if(size EQUAL 16)  # the large one would be a blur
      set(source "${CMAKE_CURRENT_SOURCE_DIR}/icon_16.svg")
    endif()
    set(png "${CMAKE_CURRENT_BINARY_DIR}/icon_${size}.png")
    add_custom_command(OUTPUT "${png}"
      COMMAND brovanta_draw_icon "${source}" ${size} "${png}" DEPENDS "${source}" VERBATIM)
    list(APPEND drawn "${png}")
    install(FILES "${png}" DESTINATION "${icons}/${size}x${size}/apps" RENAME ${BROVANTA_APP_ID}.png
      COMPONENT program)
  endforeach()
  add_custom_target(brovanta_icons ALL DEPENDS ${drawn})
endif()
