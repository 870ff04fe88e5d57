# The page of kvocaeio view: npm brings three.js and esbuild, which bundles it. Without npm or a way
# to its registry the program is built without the page, and says so when it is asked for one.

option(KVOCAEIO_VIEW "Build the page of kvocaeio view, which takes npm" ON)
# What npm brings is the same for all build folders: those in build/ share it.
cmake_path(IS_PREFIX PROJECT_SOURCE_DIR ${PROJECT_BINARY_DIR} isInside)
set(sharedFolder ${PROJECT_BINARY_DIR})
if(isInside)
    cmake_path(GET PROJECT_BINARY_DIR PARENT_PATH sharedFolder)
endif()
set(KVOCAEIO_NPM_FOLDER ${sharedFolder}/npm CACHE PATH "Where npm puts what the page is made with")
find_program(KVOCAEIO_NPM npm)
find_program(KVOCAEIO_NODE NAMES node nodejs)

set(pageFolder ${CMAKE_CURRENT_SOURCE_DIR}/view/page)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${pageFolder}/package.json ${pageFolder}/package-lock.json)

# Sets `out` to why there can be no page; empty where there can be one.
function(kvocaeio_take_modules out)
    set(${out} "" PARENT_SCOPE)
    file(SHA256 ${pageFolder}/package-lock.json wanted)
    set(stamp ${KVOCAEIO_NPM_FOLDER}/taken.txt)
    file(MAKE_DIRECTORY ${KVOCAEIO_NPM_FOLDER})
    file(LOCK ${KVOCAEIO_NPM_FOLDER} DIRECTORY GUARD FUNCTION TIMEOUT 600)
    if(EXISTS ${stamp})
        file(READ ${stamp} taken)
        if(taken STREQUAL wanted)
            return()
        endif()
    endif()
    message(STATUS "npm brings what the page of kvocaeio view is made with")
    file(COPY ${pageFolder}/package.json ${pageFolder}/package-lock.json
         DESTINATION ${KVOCAEIO_NPM_FOLDER})
    execute_process(
        COMMAND ${KVOCAEIO_NPM} ci --ignore-scripts --no-audit --no-fund
        WORKING_DIRECTORY ${KVOCAEIO_NPM_FOLDER}
        RESULT_VARIABLE result OUTPUT_VARIABLE messages ERROR_VARIABLE messages TIMEOUT 300)
    if(result EQUAL 0)
        file(WRITE ${stamp} ${wanted})
    else()
        set(${out} "npm ci has failed:\n${messages}" PARENT_SCOPE)
    endif()
endfunction()

set(noPage "")
if(NOT KVOCAEIO_VIEW)
    set(noPage "KVOCAEIO_VIEW is off")
elseif(NOT KVOCAEIO_NPM OR NOT KVOCAEIO_NODE)
    set(noPage "there is no npm")
else()
    kvocaeio_take_modules(noPage)
endif()

if(noPage)
    message(STATUS "kvocaeio is built without its command view: ${noPage}")
    set(KVOCAEIO_HAS_VIEW OFF CACHE INTERNAL "Whether the program has the page")
    target_sources(kvocaeio PRIVATE view/no_page.cpp)
    return()
endif()
set(KVOCAEIO_HAS_VIEW ON CACHE INTERNAL "Whether the program has the page")
file(GLOB pageSources CONFIGURE_DEPENDS ${pageFolder}/src/*)
set(pageArray ${CMAKE_CURRENT_BINARY_DIR}/view_page.cpp)
add_custom_command(OUTPUT ${pageArray}
    COMMAND ${KVOCAEIO_NODE} ${pageFolder}/build.mjs ${pageArray} ${KVOCAEIO_NPM_FOLDER}/node_modules
    DEPENDS ${pageFolder}/build.mjs ${pageFolder}/package-lock.json ${pageSources}
    COMMENT "Bundling the page of kvocaeio view" VERBATIM)
target_sources(kvocaeio PRIVATE ${pageArray})
set_source_files_properties(${pageArray} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
