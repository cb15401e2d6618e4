# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# What every target of ours has in common, written once.

if(XMLFRAMEWORK_DEVELOPER AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(CCACHE_PROGRAM ccache)
    mark_as_advanced(CCACHE_PROGRAM)
    if(CCACHE_PROGRAM)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
    endif()
endif()

# The flags that a program needs to live in one process with our sanitized libraries; empty without sanitizers.
set(NX_SANITIZE_FLAGS "")
if(XMLFRAMEWORK_SANITIZE)
    set(NX_SANITIZE_FLAGS -fsanitize=${XMLFRAMEWORK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
endif()

# Language level, warnings and sanitizers of a target of ours.
function(nx_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    if(XMLFRAMEWORK_DEVELOPER)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
            # GCC 12 sees overlapping copies in std::string's own operator+ (its bug 105651).
            $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
        if(XMLFRAMEWORK_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # GCC then sees uninitialised members in std::regex (its bug 105562).
            target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
        endif()
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # A unique symbol would keep a library that is closed in the process for good.
        target_compile_options(${target} PRIVATE -fno-gnu-unique)
    endif()
    if(NOT XMLFRAMEWORK_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
        # Hardened as Debian's own packages are.
        target_compile_options(${target} PRIVATE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
        target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack)
    endif()
    # __FILE__ is the name relative to the project, whoever builds it where.
    target_compile_options(${target} PRIVATE "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=" ${NX_SANITIZE_FLAGS})
    target_link_options(${target} PRIVATE -Wl,--as-needed ${NX_SANITIZE_FLAGS})
endfunction()

# nx_add_library(<name> SOURCES <file>... PUBLIC_HEADERS <file>... [PRIVATE_HEADERS <file>...])
#
# A library, shared unless BUILD_SHARED_LIBS is off, whose public headers are installed with the spelling they have in
# the source tree. Files are relative to the project's top folder.
function(nx_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC_HEADERS;PRIVATE_HEADERS")
    list(TRANSFORM arg_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/")
    list(TRANSFORM arg_PUBLIC_HEADERS PREPEND "${PROJECT_SOURCE_DIR}/")
    list(TRANSFORM arg_PRIVATE_HEADERS PREPEND "${PROJECT_SOURCE_DIR}/")

    add_library(${name} ${arg_SOURCES} ${arg_PRIVATE_HEADERS})
    add_library(XMLFramework::${name} ALIAS ${name})
    nx_configure_target(${name})
    target_sources(${name} PUBLIC
        FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${arg_PUBLIC_HEADERS})
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN")
    # Calls inside the library go straight to their target: nobody replaces our functions at load time.
    target_compile_options(${name} PRIVATE -fno-semantic-interposition
        # A record's fields are read, written, noted and described in one file: by its own measure GCC stops
        # inlining the first two there (5 % of reading a small document).
        $<$<CXX_COMPILER_ID:GNU>:--param=inline-unit-growth=120>)
    if(BUILD_SHARED_LIBS)
        target_link_options(${name} PRIVATE "-Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map")
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/exports.map")
    else()
        # Out of a static library the linker takes only the object files that somebody names, and records register
        # themselves: a single object file brings them all.
        add_custom_command(TARGET ${name} POST_BUILD
            COMMAND "${CMAKE_LINKER}" -r --whole-archive $<TARGET_FILE:${name}> -o ${name}.o
            COMMAND "${CMAKE_COMMAND}" -E rm $<TARGET_FILE:${name}>
            COMMAND "${CMAKE_AR}" rcsD $<TARGET_FILE:${name}> ${name}.o
            VERBATIM)
    endif()
    if(XMLFRAMEWORK_DEVELOPER AND CMAKE_BUILD_TYPE STREQUAL "Release")
        target_compile_options(${name} PRIVATE -g) # what the layout of public types is compared by
    endif()
    # Nor does the linker leave our own functions to others: what is exported is called as what is not.
    target_link_options(${name} PRIVATE -Wl,-Bsymbolic-functions)
    # The run-time of a sanitizer is in the program, not in the library.
    if(NOT XMLFRAMEWORK_SANITIZE)
        target_link_options(${name} PRIVATE -Wl,-z,defs)
    endif()
endfunction()
