# What every target of the build has in common.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
# A library finds its neighbours, and a program its libraries, without an entry in the loader's configuration, in the
# build tree as where they are installed. One run path for both: CMake fills one that it is going to replace with empty
# entries, and the loader takes an empty entry for the current directory, which may be anybody's.
set(CMAKE_INSTALL_RPATH "$ORIGIN")
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)

# The precompiled headers differ in nothing but their time stamps; without the sloppiness ccache never finds one.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
    else()
        add_compile_options(-fpch-preprocess)
    endif()
endif()

# What is built for others withstands more than what is correct needs; docs/security.md says what each costs.
add_compile_definitions(_GLIBCXX_ASSERTIONS)
if(CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT OVSETTINGS_FUZZ)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        add_compile_options(-fcf-protection)
    endif()
    add_compile_definitions(_FORTIFY_SOURCE=2)
    add_link_options(LINKER:-z,relro,-z,now)
endif()

if(OVSETTINGS_SANITIZE_ADDRESS)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(OVSETTINGS_SANITIZE_THREAD)
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(OVSETTINGS_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

set(OV_PCH_QT <QtCore/QtCore> <QtWidgets/QtWidgets>)

# Warnings, include paths and Qt's generators for one of our own targets.
function(ov_target target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wconversion $<$<BOOL:${OVSETTINGS_WERROR}>:-Werror>)
    # At -O3, g++ 12 sees overflows inside std::string that cannot happen.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE
            $<$<CONFIG:Release>:-Wno-stringop-overflow> $<$<CONFIG:Release>:-Wno-stringop-overread>
            $<$<CONFIG:Release>:-Wno-restrict> $<$<CONFIG:Release>:-Wno-array-bounds>)
    endif()
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    endif()
endfunction()

# One of the shared libraries that others link.
function(ov_library target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINKER_LANGUAGE CXX)
    # What a library forgot to link is noticed where it is made. A sanitizer's own symbols come with the program.
    if(NOT OVSETTINGS_SANITIZE_ADDRESS AND NOT OVSETTINGS_SANITIZE_THREAD AND NOT OVSETTINGS_FUZZ)
        target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
endfunction()

# ov_qt_target(TARGET [HEADERS]): a target with widgets: meta-object compiler, forms of resources/dialogs, precompiled
# headers of ov_precompile, Qt's if none are named.
function(ov_qt_target target)
    set(headers ovqtheaders)
    if(ARGC GREATER 1)
        set(headers ${ARGV1})
    endif()
    ov_target(${target})
    target_link_libraries(${target} PUBLIC Qt6::Widgets)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTORCC ON
        AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/resources/dialogs)
    target_precompile_headers(${target} REUSE_FROM ${headers})
endfunction()

# ov_precompile(NAME [HEADER...]): Qt's headers and some more, precompiled once for all targets that use them: that costs as
# much as twenty sources. Such a target may define more macros than this one, and has to define all that this one does.
function(ov_precompile name)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
    ov_target(${name})
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII)
    target_precompile_headers(${name} PRIVATE ${OV_PCH_QT} ${ARGN})
endfunction()
