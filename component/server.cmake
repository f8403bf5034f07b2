# Vestrel.dll with its type library, interface text, header and manifest, all in the top of the build folder.

# The tool that prints what the tables say runs on the machine that builds. It reads the tables alone, so it needs
# the library's headers and a few of its sources.
find_program(VESTREL_HOST_CXX NAMES c++ g++ clang++ REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(host_sources writers/main.cpp)
foreach(source ${descriptions} ${writers})
  list(APPEND host_sources ${source})
endforeach()
set(host_core Convert ConvertText ConvertVariant Error)
set(host_objects)
foreach(source ${host_sources})
  get_filename_component(name ${source} NAME_WE)
  list(APPEND host_units "${name}|${CMAKE_CURRENT_SOURCE_DIR}/${source}")
endforeach()
foreach(name ${host_core})
  list(APPEND host_units "${name}|${CMAKE_SOURCE_DIR}/core/${name}.cpp")
endforeach()
list(APPEND host_units "Object|${CMAKE_SOURCE_DIR}/core/Object.cpp")
file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/host")
foreach(unit ${host_units})
  string(REPLACE "|" ";" unit "${unit}")
  list(GET unit 0 name)
  list(GET unit 1 source)
  set(object "${CMAKE_CURRENT_BINARY_DIR}/host/${name}.o")
  add_custom_command(OUTPUT "${object}"
    COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} "${VESTREL_HOST_CXX}" -std=c++20 -I "${CMAKE_SOURCE_DIR}" -MD -MF "${object}.d"
            -MT "${object}" -c "${source}" -o "${object}"
    DEPENDS "${source}" DEPFILE "${object}.d" VERBATIM)
  list(APPEND host_objects "${object}")
endforeach()
set(vestrel_tables "${CMAKE_CURRENT_BINARY_DIR}/host/vestrel_tables")
add_custom_command(OUTPUT "${vestrel_tables}"
  COMMAND "${VESTREL_HOST_CXX}" ${host_objects} -o "${vestrel_tables}"
  DEPENDS ${host_objects} VERBATIM)

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(widl_name x86_64-w64-mingw32-widl)
  set(widl_bits --win64)
  set(architecture amd64)
else()
  set(widl_name i686-w64-mingw32-widl)
  set(widl_bits --win32)
  set(architecture x86)
endif()
find_program(VESTREL_WIDL NAMES ${widl_name} REQUIRED NO_CMAKE_FIND_ROOT_PATH)

set(output "${CMAKE_BINARY_DIR}")
set(work "${CMAKE_CURRENT_BINARY_DIR}")
set(system_idl "${CMAKE_CURRENT_SOURCE_DIR}/com/idl")
set(widl sh "${CMAKE_CURRENT_SOURCE_DIR}/widl.sh" "${VESTREL_WIDL}" ${widl_bits} -I "${system_idl}" -I "${work}")

add_custom_command(OUTPUT "${output}/Vestrel.idl"
  COMMAND "${vestrel_tables}" idl > "${output}/Vestrel.idl"
  DEPENDS "${vestrel_tables}" VERBATIM)
add_custom_command(OUTPUT "${work}/Vestrel.idl"
  COMMAND "${vestrel_tables}" widl > "${work}/Vestrel.idl"
  DEPENDS "${vestrel_tables}" VERBATIM)
# widl names its source in the header: a name without folders gives the same header everywhere.
add_custom_command(OUTPUT "${work}/header/Vestrel.idl"
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${work}/header"
  COMMAND "${vestrel_tables}" header > "${work}/header/Vestrel.idl"
  DEPENDS "${vestrel_tables}" VERBATIM)
add_custom_command(OUTPUT "${output}/Vestrel.manifest"
  COMMAND "${vestrel_tables}" manifest ${architecture} ${PROJECT_VERSION} > "${output}/Vestrel.manifest"
  DEPENDS "${vestrel_tables}" VERBATIM)
add_custom_command(OUTPUT "${work}/stdole2.tlb"
  COMMAND ${widl} -t -o "${work}/stdole2.tlb" "${system_idl}/stdole2.idl"
  DEPENDS "${system_idl}/stdole2.idl" "${system_idl}/oaidl.idl" VERBATIM)
add_custom_command(OUTPUT "${output}/Vestrel.tlb"
  COMMAND ${widl} -L "${work}" -t -o "${output}/Vestrel.tlb" "${work}/Vestrel.idl"
  COMMAND "${vestrel_tables}" finish-typelib "${output}/Vestrel.tlb"
  DEPENDS "${work}/Vestrel.idl" "${work}/stdole2.tlb" "${system_idl}/oaidl.idl" "${vestrel_tables}" VERBATIM)
add_custom_command(OUTPUT "${output}/Vestrel.h"
  COMMAND ${widl} -L "${work}" -h -o "${output}/Vestrel.h" Vestrel.idl
  WORKING_DIRECTORY "${work}/header"
  DEPENDS "${work}/header/Vestrel.idl" "${work}/stdole2.tlb" "${system_idl}/oaidl.idl" VERBATIM)

enable_language(RC)
configure_file(com/Vestrel.rc.in "${work}/Vestrel.rc" @ONLY)
set_source_files_properties("${work}/Vestrel.rc" PROPERTIES OBJECT_DEPENDS "${output}/Vestrel.tlb")

add_library(vestrel_server SHARED
  com/ClassFactory.cpp
  com/CollectionsFaces.cpp
  com/ComparisonFaces.cpp
  com/ControllerFaces.cpp
  com/Dispatch.cpp
  com/EarlyCall.cpp
  com/EntryPoints.cpp
  com/FaceClasses.cpp
  com/FaderRecord.cpp
  com/Failure.cpp
  com/HostAdapters.cpp
  com/HostCaller.cpp
  com/HostInterfacesFaces.cpp
  com/HostLink.cpp
  com/HostObject.cpp
  com/ModelFaces.cpp
  com/Module.cpp
  com/RecordingFaces.cpp
  com/Registration.cpp
  com/SafeArrays.cpp
  com/StorageFaces.cpp
  com/TypeInformation.cpp
  com/UtilitiesFaces.cpp
  com/Values.cpp
  com/Wrapper.cpp
  com/Vestrel.def
  "${work}/Vestrel.rc"
  "${output}/Vestrel.tlb" "${output}/Vestrel.idl" "${output}/Vestrel.h" "${output}/Vestrel.manifest")
set_target_properties(vestrel_server PROPERTIES
  OUTPUT_NAME Vestrel PREFIX "" RUNTIME_OUTPUT_DIRECTORY "${output}" ARCHIVE_OUTPUT_DIRECTORY "${work}")
# Texts of the system and of the library are the same 16-bit units under two names.
target_compile_options(vestrel_server PRIVATE -fno-strict-aliasing)
target_link_options(vestrel_server PRIVATE -Wl,--enable-stdcall-fixup -Wl,--wrap=__cxa_thread_atexit)
target_link_libraries(vestrel_server PRIVATE vestrel_component ole32 oleaut32 uuid advapi32)
