# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# The documentation site, made by Doxygen of the public headers, the pages and what the tool says of each record:
# ${PROJECT_BINARY_DIR}/site. Every warning is an error.

find_package(Doxygen 1.9.4 REQUIRED COMPONENTS dot)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(site "${PROJECT_BINARY_DIR}/site")
set(input "${PROJECT_BINARY_DIR}/site-input")
file(GLOB_RECURSE pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/*.md" "${PROJECT_SOURCE_DIR}/docs/site/*")
list(FILTER pages EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/build/")

add_custom_command(
    OUTPUT "${site}/index.html"
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${site}" "${input}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${site}" "${input}"
    COMMAND xmlframework-tool types --format json > "${input}/types.json"
    COMMAND Python3::Interpreter docs/site/prepare.py
        . "${PROJECT_BINARY_DIR}/public-headers.txt" "${input}/types.json" "${input}"
    COMMAND "${CMAKE_COMMAND}" -E env
        "NX_VERSION=${PROJECT_VERSION}" "NX_INPUT=${input}" "NX_OUTPUT=${site}"
        "$<TARGET_FILE:Doxygen::doxygen>" docs/site/Doxyfile
    DEPENDS xmlframework-tool ${pages} "${PROJECT_SOURCE_DIR}/docs/performance.svg"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Making the documentation site"
    VERBATIM)
add_custom_target(documentation ALL DEPENDS "${site}/index.html")

install(DIRECTORY "${site}/"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/XMLFramework/html"
    COMPONENT documentation)
