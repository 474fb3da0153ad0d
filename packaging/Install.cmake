# What `cmake --install` puts where, the CMake package and pkg-config file a host finds
# the library by, and the Debian packages `cpack -G DEB` makes of them:
#   libphysicalobject1      the plug-in and the host library (component runtime)
#   libphysicalobject-dev   headers, CMake package, pkg-config file (component dev)
#   physboard               physboard, physlab, desktop entry, icon, page file type (component board)
include(CMakePackageConfigHelpers)

install(TARGETS svghost physicalobject EXPORT PhysicalObjectTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)

# Headers under one folder: the host's at its top (as <svgbase.h>), the library's and the
# shared apparatus pieces by folder (as <physicalobject/physicalobject.h>, <bases/Meter.h>).
set(PHYS_INCLUDE ${CMAKE_INSTALL_INCLUDEDIR}/physicalobject)
file(GLOB PHYS_HOST_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/host/*.h)
list(FILTER PHYS_HOST_HEADERS EXCLUDE REGEX "_p\\.h$")
install(FILES ${PHYS_HOST_HEADERS} DESTINATION ${PHYS_INCLUDE} COMPONENT dev)
install(FILES ${PROJECT_SOURCE_DIR}/physicalobject/physicalobject.h
              ${PROJECT_SOURCE_DIR}/physicalobject/physicalobject_shared_global.h
        DESTINATION ${PHYS_INCLUDE}/physicalobject COMPONENT dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/bases/ DESTINATION ${PHYS_INCLUDE}/bases COMPONENT dev
        FILES_MATCHING PATTERN "*.h")

install(EXPORT PhysicalObjectTargets NAMESPACE PhysicalObject:: FILE PhysicalObjectTargets.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/PhysicalObject COMPONENT dev)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/PhysicalObjectConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/PhysicalObjectConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/PhysicalObject)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PhysicalObjectConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PhysicalObjectConfig.cmake ${PROJECT_BINARY_DIR}/PhysicalObjectConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/PhysicalObject COMPONENT dev)
# The file finds its prefix from where it lies, so that the tree can be moved (a
# staging prefix, a package).
file(RELATIVE_PATH PHYS_PC_TO_PREFIX /root/${CMAKE_INSTALL_LIBDIR}/pkgconfig /root)
configure_file(${CMAKE_CURRENT_LIST_DIR}/physicalobject.pc.in ${PROJECT_BINARY_DIR}/physicalobject.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/physicalobject.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

# The apps find the host library beside them wherever the tree is put (a prefix, a package).
file(RELATIVE_PATH PHYS_APP_TO_LIB /root/${CMAKE_INSTALL_BINDIR} /root/${CMAKE_INSTALL_LIBDIR})
set_target_properties(physboard physlab PROPERTIES INSTALL_RPATH "$ORIGIN/${PHYS_APP_TO_LIB}")
install(TARGETS physboard physlab RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT board)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/physboard.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT board)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/physboard.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        COMPONENT board)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/physboard-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME physboard.xml COMPONENT board)

set(CPACK_PACKAGE_NAME physicalobject)
set(CPACK_PACKAGE_VENDOR "physicalobject")
set(CPACK_PACKAGE_CONTACT "physicalobject maintainers <maintainers@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Physics teaching apparatus for an interactive whiteboard")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev board)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libphysicalobject1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libqt5widgets5 (>= 5.15), libqt5gui5 (>= 5.15), libqt5core5a (>= 5.15), fonts-liberation")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libphysicalobject-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libphysicalobject1 (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_BOARD_PACKAGE_NAME physboard)
set(CPACK_DEBIAN_BOARD_PACKAGE_DEPENDS "libphysicalobject1 (= ${PROJECT_VERSION}), libqt5printsupport5 (>= 5.15), shared-mime-info, desktop-file-utils")
set(CPACK_DEBIAN_BOARD_PACKAGE_SECTION education)
include(CPack)
