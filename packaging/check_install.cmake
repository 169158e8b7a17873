# Installs into a folder of its own, builds the example host against it once by the CMake package and once by
# pkg-config, a backend against the installed headers and a C file against the public one, and runs what came out.
set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/home)

function(run name)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${name} failed (${result}):\n${output}\n${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

set(flags)
if(SANITIZE)
  # The library brings the sanitizer's calls along; a program that loads it must bring the runtime.
  set(flags -fsanitize=address,undefined)
endif()

run("install" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} --config "${CONFIG}")
foreach(file include/pnltools/pnltools.h include/pnltools/rig.h include/pnltools/backend/facade/cnc_facade.h
        ${LIBDIR}/libpnltools.so ${LIBDIR}/pnl-shares.so ${LIBDIR}/pnl-video.so ${LIBEXECDIR}/pnltools/pnl-chm
        ${LIBDIR}/pkgconfig/pnltools.pc ${LIBDIR}/cmake/pnltools/pnltoolsConfig.cmake
        share/pnltools/lang/en.pnl share/pnltools/lang/es.pnl share/pnltools/manuals/en/Cnc7340.helps
        share/pnltools/manuals/es/operating.chm share/pnltools/manuals/es/operating.mrk share/pnltools/plc/en/messages.txt
        share/pnltools/plc/es/clamp.gif bin/pnlpanel)
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "${file} was not installed")
  endif()
endforeach()

set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{HOME} ${WORK}/home)
set(ENV{XDG_DATA_HOME} ${WORK}/home)

function(check_host program)
  run("${program}" ${program})
  foreach(line "tool 6 opens" "channel 1 taken" "soft key 40005" "channel 1 let go" "tool 6 closed, reason 2"
          "opened 0, closed 0")
    if(NOT output MATCHES "${line}")
      message(FATAL_ERROR "${program} didn't print \"${line}\":\n${output}")
    endif()
  endforeach()
endfunction()

run("configuring the example" ${CMAKE_COMMAND} -S ${SOURCE}/example_host -B ${WORK}/by_cmake -G ${GENERATOR}
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=${flags}")
run("building the example" ${CMAKE_COMMAND} --build ${WORK}/by_cmake)
check_host(${WORK}/by_cmake/example_host)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run("pkg-config" pkg-config --cflags --libs pnltools Qt6Widgets)
separate_arguments(package_flags UNIX_COMMAND "${output}")
run("compiling the example" ${COMPILER} -std=c++20 -fPIC ${flags} ${SOURCE}/example_host/main.cpp
  -o ${WORK}/by_pkg_config ${package_flags} -Wl,-rpath,${prefix}/${LIBDIR})
check_host(${WORK}/by_pkg_config)

run("pkg-config" pkg-config --variable=backenddir pnltools)
string(STRIP "${output}" backend_dir)
file(WRITE ${WORK}/backend.cpp "#include \"facade/backend.h\"\nPNL_BACKEND_LIBRARY\n"
  "pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return nullptr; }\n")
run("compiling a backend" ${COMPILER} -std=c++20 -fPIC -shared ${flags} -I${backend_dir} ${WORK}/backend.cpp
  -o ${WORK}/backend.so)

file(WRITE ${WORK}/host.c "#include <pnltools/pnltools.h>\nint main(void) { return PnlMenuItemCount(0) == -1 ? 0 : 1; }\n")
run("compiling a C host" ${COMPILER} -x c -std=c11 -pedantic -Wall -Wextra -Werror ${flags} -I${prefix}/include
  ${WORK}/host.c -o ${WORK}/c_host -L${prefix}/${LIBDIR} -lpnltools -Wl,-rpath,${prefix}/${LIBDIR})
run("the C host" ${WORK}/c_host)

# The installed panel finds its library and languages beside itself, and ends with its input.
file(WRITE ${WORK}/requests "{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"lang.text\",\"params\":{\"id\":1,\"text\":\"x\"}}\n")
execute_process(COMMAND ${prefix}/bin/pnlpanel --headless --rpc --root ${WORK}/home INPUT_FILE ${WORK}/requests
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result EQUAL 0 OR NOT output MATCHES "\"result\"")
  message(FATAL_ERROR "the installed panel failed (${result}):\n${output}\n${errors}")
endif()
