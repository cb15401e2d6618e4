# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# The Debian packages that `cpack -G DEB` makes of the installed components.

set(NX_MAINTAINER "The XMLFramework authors <xmlframework@example.org>" CACHE STRING "Who answers for the packages")

# Each package says of itself, compressed, what policy asks for.
set(debian "${PROJECT_BINARY_DIR}/debian")
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    set(when "@$ENV{SOURCE_DATE_EPOCH}")
else()
    set(when now)
endif()
execute_process(COMMAND env LC_ALL=C date -u -R -d "${when}" OUTPUT_VARIABLE NX_DATE OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
configure_file("${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in" "${debian}/changelog.Debian" @ONLY)
file(COPY "${CMAKE_CURRENT_LIST_DIR}/debian/copyright" DESTINATION "${debian}")
execute_process(COMMAND gzip -9nf "${debian}/changelog.Debian" COMMAND_ERROR_IS_FATAL ANY)

set(CPACK_COMPONENTS_ALL "")

# nx_add_package(<component> <package> <section> <summary> <description> [<dependency>])
macro(nx_add_package component package section summary description)
    install(FILES "${debian}/copyright" "${debian}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}"
        COMPONENT ${component})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${description}")
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARGN}")
endmacro()

set(exactly "(= ${PROJECT_VERSION}-1)")
set(what "Configuration and specification records of an electronic-trading platform,\nconverted to and from XML.")
nx_add_package(nxcore libnxcore1 libs "base library of XMLFramework"
    "${what} This library has\nthe value types, enumerations, log and file helpers below them.")
nx_add_package(XMLFramework libxmlframework1 libs "records of a trading platform as XML"
    "${what} This is the\nlibrary that programs load." "libnxcore1 ${exactly}")
nx_add_package(development libxmlframework-dev libdevel "records of a trading platform as XML (development)"
    "${what} These are the\nheaders, CMake and pkg-config files to build programs with."
    "libnxcore1 ${exactly}, libxmlframework1 ${exactly}")
nx_add_package(tool xmlframework utils "check, convert and look at records of a trading platform"
    "${what} This tool tells\nwhat is wrong in their files, and where, and takes them to other forms."
    "libnxcore1 ${exactly}, libxmlframework1 ${exactly}")

if(XMLFRAMEWORK_DOCUMENTATION)
    nx_add_package(documentation xmlframework-doc doc "records of a trading platform as XML (documentation)"
        "${what} This is the\nguide, the formats' pages and the reference, to be read in a browser.")
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
endif()

# CPack calls ldconfig itself where libraries lie; Debian's own packages ask for it by a trigger.
file(WRITE "${debian}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_NXCORE_PACKAGE_CONTROL_EXTRA "${debian}/triggers")
set(CPACK_DEBIAN_XMLFRAMEWORK_PACKAGE_CONTROL_EXTRA "${debian}/triggers")

set(CPACK_PACKAGE_NAME xmlframework)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${NX_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE xmlframework)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/core" "${PROJECT_BINARY_DIR}/xmlFramework")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES OFF) # the debug symbols are taken off into packages of their own
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
