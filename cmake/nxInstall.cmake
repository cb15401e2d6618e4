# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# The installed tree: libraries, tool with its schemas, manual page and completions, public headers, the CMake
# package and the pkg-config files. Nothing in it knows the prefix, so the tree can be moved.

include(CMakePackageConfigHelpers)

set(NX_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/XMLFramework")
set(NX_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/XMLFramework")
set(NX_INSTALL_PKGCONFIGDIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# A component is a package of its own: somebody may have the libraries without the tool, so each is exported alone.
foreach(library nxcore XMLFramework)
    install(TARGETS ${library}
        EXPORT ${library}Targets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${library} NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        INCLUDES DESTINATION "${NX_INSTALL_INCLUDEDIR}"
        FILE_SET HEADERS DESTINATION "${NX_INSTALL_INCLUDEDIR}" COMPONENT development)
    install(EXPORT ${library}Targets
        NAMESPACE XMLFramework::
        DESTINATION "${NX_INSTALL_CMAKEDIR}"
        COMPONENT development)
endforeach()
install(TARGETS xmlframework-tool
    EXPORT toolTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tool)
install(EXPORT toolTargets
    NAMESPACE XMLFramework::
    DESTINATION "${NX_INSTALL_CMAKEDIR}"
    COMPONENT tool)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/XMLFrameworkConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/XMLFrameworkConfig.cmake"
    INSTALL_DESTINATION "${NX_INSTALL_CMAKEDIR}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/XMLFrameworkConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/XMLFrameworkConfig.cmake"
    "${PROJECT_BINARY_DIR}/XMLFrameworkConfigVersion.cmake"
    DESTINATION "${NX_INSTALL_CMAKEDIR}"
    COMPONENT development)

if(NOT BUILD_SHARED_LIBS) # then whoever links them looks for it, too
    install(FILES "${CMAKE_CURRENT_LIST_DIR}/FindLibCSV.cmake"
        DESTINATION "${NX_INSTALL_CMAKEDIR}"
        COMPONENT development)
endif()

# A .pc file finds its prefix from where it lies itself.
file(RELATIVE_PATH NX_PREFIX_FROM_PKGCONFIG
    "/prefix/${NX_INSTALL_PKGCONFIGDIR}" "/prefix")
string(REGEX REPLACE "/$" "" NX_PREFIX_FROM_PKGCONFIG "${NX_PREFIX_FROM_PKGCONFIG}")
foreach(name nxcore XMLFramework)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${NX_INSTALL_PKGCONFIGDIR}"
        COMPONENT development)
endforeach()

install(DIRECTORY "${PROJECT_BINARY_DIR}/tool/share/"
    DESTINATION "${CMAKE_INSTALL_DATADIR}"
    COMPONENT tool
    PATTERN made EXCLUDE)
if(NOT XMLFRAMEWORK_PACKAGES) # which say that in each
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/XMLFramework"
        COMPONENT development)
endif()
