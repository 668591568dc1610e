# Header-only libraries are the same files for every target system. The cross compiler must not see
# /usr/include itself, so it reaches them through a folder that holds nothing but links.
find_package(Threads REQUIRED)
set(tolvex_headers ${CMAKE_BINARY_DIR}/headers)

function(tolvex_header_library name folder package)
  find_path(${name}_HEADERS ${folder} PATHS /usr/local/include /usr/include
    NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
  if(NOT ${name}_HEADERS)
    message(FATAL_ERROR "${folder}/ headers not found. Install the package ${package} "
      "(or run: ./run setup).")
  endif()
  file(MAKE_DIRECTORY ${tolvex_headers}/${name})
  file(CREATE_LINK ${${name}_HEADERS}/${folder} ${tolvex_headers}/${name}/${folder} SYMBOLIC)
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${tolvex_headers}/${name})
endfunction()

tolvex_header_library(rapidjson rapidjson rapidjson-dev)
tolvex_header_library(boost_headers boost libboost-dev)
tolvex_header_library(cli11 CLI libcli11-dev)
tolvex_header_library(nlohmann_json nlohmann nlohmann-json3-dev)
tolvex_header_library(stb stb libstb-dev)

# Boost.Asio and Beast, header-only, with what they need of the system.
target_compile_definitions(boost_headers INTERFACE BOOST_ERROR_CODE_HEADER_ONLY)
target_link_libraries(boost_headers INTERFACE Threads::Threads)
if(WIN32)
  target_link_libraries(boost_headers INTERFACE ws2_32 mswsock)
endif()
