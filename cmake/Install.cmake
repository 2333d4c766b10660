# What `cmake --install` puts in place: the viewer and kirameki-cli in bin/, the desktop entry,
# the icon (SVG and PNG sizes 16 to 512 rendered from it at build time), the AppStream data,
# the manual pages, the bash completion of kirameki-cli and the package's copyright and
# changelog. The Japanese translation is
# compiled into the viewer, where it looks for it first.
include(GNUInstallDirs)

set(KIRAMEKI_APP_ID io.github.kirameki.Kirameki)
set(kirameki_data ${PROJECT_SOURCE_DIR}/data)
set(kirameki_generated ${PROJECT_BINARY_DIR}/data)
file(MAKE_DIRECTORY ${kirameki_generated}/icons)

# Manual pages and the changelog compressed as Debian expects them (gzip -9n: no time stamp,
# so the same sources give the same bytes).
find_program(GZIP_PROGRAM gzip REQUIRED)
set(kirameki_compressed)
foreach(file kirameki-cli.1 kirameki.1 changelog)
  add_custom_command(
    OUTPUT ${kirameki_generated}/${file}.gz
    COMMAND ${GZIP_PROGRAM} -9n -c ${kirameki_data}/${file} > ${kirameki_generated}/${file}.gz
    DEPENDS ${kirameki_data}/${file}
    VERBATIM)
  list(APPEND kirameki_compressed ${kirameki_generated}/${file}.gz)
endforeach()
add_custom_target(kirameki_data_files ALL DEPENDS ${kirameki_compressed})

install(TARGETS kirameki-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${kirameki_generated}/kirameki-cli.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# Where bash-completion loads a command's completion from when it is first completed.
install(FILES ${kirameki_data}/kirameki-cli.bash-completion
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME kirameki-cli)
install(FILES ${kirameki_data}/copyright ${kirameki_generated}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kirameki)

if(TARGET kirameki)
  install(TARGETS kirameki RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${kirameki_generated}/kirameki.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${kirameki_data}/${KIRAMEKI_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${kirameki_data}/${KIRAMEKI_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${kirameki_data}/${KIRAMEKI_APP_ID}.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

  # The PNG sizes of the icon theme, rendered from the SVG.
  find_package(Qt6 REQUIRED COMPONENTS Gui Svg)
  add_executable(icon_renderer ${PROJECT_SOURCE_DIR}/src/app/icon_renderer.cpp)
  target_link_libraries(icon_renderer PRIVATE Qt6::Gui Qt6::Svg)
  set(kirameki_icon_sizes 16 22 24 32 48 64 128 256 512)
  set(kirameki_pngs)
  foreach(size ${kirameki_icon_sizes})
    list(APPEND kirameki_pngs ${kirameki_generated}/icons/${size}.png)
    install(FILES ${kirameki_generated}/icons/${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME ${KIRAMEKI_APP_ID}.png)
  endforeach()
  add_custom_command(
    OUTPUT ${kirameki_pngs}
    COMMAND icon_renderer ${kirameki_data}/${KIRAMEKI_APP_ID}.svg ${kirameki_generated}/icons
            ${kirameki_icon_sizes}
    DEPENDS icon_renderer ${kirameki_data}/${KIRAMEKI_APP_ID}.svg
    VERBATIM)
  add_custom_target(kirameki_icons ALL DEPENDS ${kirameki_pngs})
endif()

# The installed files checked as a distribution would: desktop entry, AppStream data, manual
# pages and icons, installed into a scratch prefix.
if(KIRAMEKI_TESTS AND TARGET kirameki)
  add_test(NAME installed_files
           COMMAND ${PROJECT_SOURCE_DIR}/tests/install/installed_files_test.sh
                   ${PROJECT_BINARY_DIR} ${KIRAMEKI_APP_ID})
endif()
