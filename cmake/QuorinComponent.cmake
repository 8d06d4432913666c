# quorin_component(Svg ON Core Services USES pugixml FOLDERS svg DESCRIPTION "Reads and writes SVG")
#
# One library of the package with all that others need to use it: headers, CMake targets and a
# pkg-config file. Third-party libraries go by the name of their pkg-config module and are private:
# only whoever links a static archive has to have them. Headers directly in a folder are public,
# those in folders below it are not.
include_guard()
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(QUORIN_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QuorinGraphics)
set(QUORIN_RESOURCE_DIR ${CMAKE_INSTALL_DATADIR}/QuorinGraphics)
set(QUORIN_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY
    ${CMAKE_INSTALL_PREFIX}/${QUORIN_PKGCONFIG_DIR} OUTPUT_VARIABLE QUORIN_PKGCONFIG_TO_PREFIX)

function(quorin_component name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION" "ON;USES;FOLDERS")
    set(target Quorin${name})
    add_library(${target})
    add_library(QuorinGraphics::${name} ALIAS ${target})
    # Below 1.0 a minor version may break the binary interface, so it is part of the soname.
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name} OUTPUT_NAME QuorinGraphics${name} POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        INSTALL_RPATH $ORIGIN)
    target_compile_features(${target} PUBLIC cxx_std_20)

    list(TRANSFORM arg_ON PREPEND Quorin OUTPUT_VARIABLE components)
    target_link_libraries(${target} PUBLIC ${components})
    foreach(module IN LISTS arg_USES)
        find_package(PkgConfig REQUIRED QUIET)
        pkg_check_modules(${module} REQUIRED QUIET IMPORTED_TARGET GLOBAL ${module})
        target_link_libraries(${target} PRIVATE PkgConfig::${module})
    endforeach()

    list(TRANSFORM arg_FOLDERS APPEND /*.h OUTPUT_VARIABLE patterns)
    file(GLOB headers CONFIGURE_DEPENDS ${patterns})
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
    foreach(folder IN LISTS arg_FOLDERS)
        add_subdirectory(${folder})
    endforeach()

    set_property(GLOBAL APPEND PROPERTY QUORIN_COMPONENTS ${name})
    quorin_install_component(${name} ${target} "${arg_DESCRIPTION}" "${arg_ON}" "${arg_USES}")
endfunction()

# `components` and `modules` are what the two files say the component needs.
function(quorin_install_component name target description components modules)
    install(TARGETS ${target} EXPORT ${name} FILE_SET HEADERS)
    install(EXPORT ${name} NAMESPACE QuorinGraphics:: FILE QuorinGraphics${name}Targets.cmake
        DESTINATION ${QUORIN_PACKAGE_DIR})

    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")  # has its libraries in it, nobody else needs them
        set(modules)
    endif()
    set(options "$<TARGET_PROPERTY:${target},INTERFACE_COMPILE_OPTIONS>")
    list(TRANSFORM components PREPEND QuorinGraphics- OUTPUT_VARIABLE required)
    list(JOIN required " " required)
    list(JOIN modules " " required_private)
    set(folder ${PROJECT_BINARY_DIR}/package)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/component.cmake.in
        ${folder}/QuorinGraphics${name}.cmake @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/component.pc.in ${folder}/${name}.pc @ONLY)
    file(GENERATE OUTPUT ${folder}/QuorinGraphics-${name}.pc INPUT ${folder}/${name}.pc)
    install(FILES ${folder}/QuorinGraphics${name}.cmake DESTINATION ${QUORIN_PACKAGE_DIR})
    install(FILES ${folder}/QuorinGraphics-${name}.pc DESTINATION ${QUORIN_PKGCONFIG_DIR})
endfunction()

# After the last component: what find_package(QuorinGraphics) reads first.
function(quorin_install_package)
    get_property(QUORIN_COMPONENTS GLOBAL PROPERTY QUORIN_COMPONENTS)
    set(folder ${PROJECT_BINARY_DIR}/package)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QuorinGraphicsConfig.cmake.in
        ${folder}/QuorinGraphicsConfig.cmake INSTALL_DESTINATION ${QUORIN_PACKAGE_DIR})
    write_basic_package_version_file(${folder}/QuorinGraphicsConfigVersion.cmake
        COMPATIBILITY SameMinorVersion)
    install(FILES ${folder}/QuorinGraphicsConfig.cmake ${folder}/QuorinGraphicsConfigVersion.cmake
        DESTINATION ${QUORIN_PACKAGE_DIR})
endfunction()
