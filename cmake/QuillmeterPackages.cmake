# Two Debian packages from one build, which cpack makes (scripts/package has them checked and tried): the application,
# and the tool, which needs neither the application nor a display.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmeter)
set(CPACK_PACKAGE_CONTACT "${QUILLMETER_MAINTAINER}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${QUILLMETER_PRODUCT_URL}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own, the first line of its description
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL tool)
if(QUILLMETER_APPLICATION)
  list(APPEND CPACK_COMPONENTS_ALL application)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_APPLICATION_PACKAGE_NAME quillmeter)
# The plug-ins are loaded, not linked, so nothing else finds them: without them no window opens.
set(CPACK_DEBIAN_APPLICATION_PACKAGE_DEPENDS qt6-qpa-plugins)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_RECOMMENDS "quillmeter-cli (= ${PROJECT_VERSION}), qt6-wayland")
set(CPACK_DEBIAN_APPLICATION_DESCRIPTION "source code measurement for Xcode projects
Quillmeter measures a software project that an Xcode project bundle
describes: lines, comments, words, characters and sizes of every file
that the project references. It shows totals, a sortable table of every
file, charts with advice and the files that nobody references, and
exports a CSV table and a PDF report.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME quillmeter-cli)
set(CPACK_DEBIAN_TOOL_PACKAGE_SUGGESTS "quillmeter (= ${PROJECT_VERSION}), bash-completion")
set(CPACK_DEBIAN_TOOL_DESCRIPTION "source code measurement for Xcode projects in a terminal
quillmeter-cli measures a software project that an Xcode project bundle
describes, compares measurements, holds limits on a build server, makes
a page for a browser, and lists files that nobody references.
PDF reports are made by the application in the package quillmeter.")

include(CPack)
