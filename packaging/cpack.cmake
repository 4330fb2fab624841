# The Debian packages: `make package`, or cpack in the build folder.
set(CPACK_COMPONENTS_ALL "")
if(TARGET brovanta)
  list(APPEND CPACK_COMPONENTS_ALL program)
endif()
if(TARGET brovanta-server)
  list(APPEND CPACK_COMPONENTS_ALL server)
endif()
if(NOT CPACK_COMPONENTS_ALL)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME brovanta)
set(CPACK_PACKAGE_VENDOR "The Brovanta developers")
set(CPACK_PACKAGE_CONTACT "The Brovanta developers <developers@brovanta.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Installed as for the real root, so that what is written at the installation tells real paths.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/debian/finish_staging.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME brovanta)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
# Loaded when something is fetched, which is not seen in the programs.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libcurl4 | libcurl4t64")
# Phones show it by Wayland; links open in the browser; shops are asked by https; in another language
# the toolkit has words of its own.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
  "ca-certificates, qt6-translations-l10n, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS brovanta-server)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "personal shopping planner
Brovanta tells what to buy today, this week, this month, once or again and
again, and what was bought. Coupons and rebates find the products they
belong to, an update server brings new ones, and one question asks all web
shops of a category at once.

It is made for handhelds and desktops alike, works without a network, and
keeps its data in a few documented files of the user.

The package also holds brovanta-data, which checks the data, brings copies
of it back and prints the shopping list, and brovanta-agent, which checks
descriptions of web shops.")

set(CPACK_DEBIAN_SERVER_PACKAGE_NAME brovanta-server)
set(CPACK_DEBIAN_SERVER_PACKAGE_SECTION net)
set(CPACK_DEBIAN_SERVER_PACKAGE_ENHANCES brovanta)
set(CPACK_DEBIAN_SERVER_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/postinst"
  "${CMAKE_CURRENT_SOURCE_DIR}/debian/prerm" "${CMAKE_CURRENT_SOURCE_DIR}/debian/postrm")
set(CPACK_COMPONENT_SERVER_DESCRIPTION "update server of the Brovanta shopping planner
brovanta-server sends stores, categories, coupons and search agents to the
handhelds of a household, a shop or a town, and shows each coupon as a page
that fits a phone. It keeps everything in one SQLite database, filled from
comma-separated tables.

A systemd service comes along. It is started by nobody but the
administrator.")

include(CPack)
