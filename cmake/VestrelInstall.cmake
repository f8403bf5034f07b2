# What `cmake --install` puts where, in two components: "native", the library as one archive with its headers and its
# CMake package, and "server", what a build for Windows makes for hosts. tools/make-kit makes the whole kit of them.
include(CMakePackageConfigHelpers)

set(vestrel_parts
  vestrel_platform vestrel_core vestrel_util vestrel_collections vestrel_capture vestrel_storage vestrel_model
  vestrel_leds vestrel_recording vestrel_control_index vestrel_controller vestrel_facade vestrel_component)
add_library(vestrel STATIC)
foreach(part ${vestrel_parts})
  target_sources(vestrel PRIVATE $<TARGET_OBJECTS:${part}>)
endforeach()
set_target_properties(vestrel PROPERTIES EXPORT_NAME Vestrel LINKER_LANGUAGE CXX)
target_compile_features(vestrel INTERFACE cxx_std_20)
target_include_directories(vestrel INTERFACE $<INSTALL_INTERFACE:include/vestrel>)
target_link_libraries(vestrel INTERFACE ${CMAKE_DL_LIBS})

set(package lib/cmake/Vestrel)
install(TARGETS vestrel EXPORT VestrelTargets ARCHIVE DESTINATION lib COMPONENT native)
install(EXPORT VestrelTargets NAMESPACE Vestrel:: DESTINATION ${package} COMPONENT native)
configure_package_config_file(cmake/VestrelConfig.cmake.in "${CMAKE_CURRENT_BINARY_DIR}/VestrelConfig.cmake"
  INSTALL_DESTINATION ${package})
# Until version 1.0 a new minor version may change what native programs are compiled against.
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/VestrelConfigVersion.cmake"
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/VestrelConfig.cmake" "${CMAKE_CURRENT_BINARY_DIR}/VestrelConfigVersion.cmake"
  DESTINATION ${package} COMPONENT native)
foreach(folder platform core util storage model leds recording controller component)
  install(DIRECTORY ${folder} DESTINATION include/vestrel COMPONENT native
    FILES_MATCHING PATTERN "*.h"
    PATTERN windows EXCLUDE PATTERN posix EXCLUDE PATTERN com EXCLUDE PATTERN writers EXCLUDE)
endforeach()

if(WIN32)
  foreach(extension dll tlb idl h manifest)
    install(FILES "${CMAKE_BINARY_DIR}/Vestrel.${extension}" DESTINATION . COMPONENT server)
  endforeach()
endif()
