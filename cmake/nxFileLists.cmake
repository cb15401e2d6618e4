# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# public-headers.txt and library-files.txt in the build folder: the headers that are installed, and every file of the
# two libraries. Checks and the documentation go by them.

set(public_headers "")
set(library_files "")
foreach(library nxcore XMLFramework)
    get_target_property(headers ${library} HEADER_SET)
    get_target_property(sources ${library} SOURCES)
    list(APPEND public_headers ${headers})
    list(APPEND library_files ${headers} ${sources})
endforeach()
foreach(list public_headers library_files)
    list(TRANSFORM ${list} REPLACE "^${PROJECT_SOURCE_DIR}/" "")
    list(JOIN ${list} "\n" lines)
    string(REPLACE "_" "-" file ${list})
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${file}.txt" CONTENT "${lines}\n")
endforeach()
