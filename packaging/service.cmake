# What the update server has beside its program: its pages and its systemd unit.
install(FILES copyright "${CMAKE_SOURCE_DIR}/docs/server.md" "${CMAKE_SOURCE_DIR}/docs/agents.md"
  DESTINATION "${server_docdir}" COMPONENT server)
install(FILES "${CMAKE_SOURCE_DIR}/docs/formats/feeds.md" "${CMAKE_SOURCE_DIR}/docs/formats/agents.md"
  DESTINATION "${server_docdir}/formats" COMPONENT server)

# It listens to strangers: nothing that a fault could bend stays writable.
target_link_options(brovanta-server PRIVATE LINKER:-z,relro,-z,now)

# The unit names the program by its whole path, which is known no sooner than at the installation.
set(BROVANTA_SYSTEMD_UNITDIR "lib/systemd/system" CACHE STRING
  "Where systemd units are installed, below the prefix")
install(CODE "
  set(BROVANTA_BINDIR \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  set(BROVANTA_DOCDIR \"\${CMAKE_INSTALL_PREFIX}/${server_docdir}\")
  configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/brovanta-server.service.in\"
    \"${CMAKE_CURRENT_BINARY_DIR}/brovanta-server.service\" @ONLY)
  file(INSTALL \"${CMAKE_CURRENT_BINARY_DIR}/brovanta-server.service\"
    DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${BROVANTA_SYSTEMD_UNITDIR}\")
" COMPONENT server)
