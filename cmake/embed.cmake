# Writes a C++ source that holds the bytes of files, as base/embedded_file.h declares them.
#   cmake -DOUTPUT=FILE.cpp -DFOLDER=FOLDER -DFILES=NAME;NAME... -P embed.cmake
# NAME is a path below FOLDER, under which the program finds the file.
set(arrays "")
set(entries "")
set(number 0)
foreach(name IN LISTS FILES)
  file(READ ${FOLDER}/${name} bytes HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  # An array may not be empty: one more byte, which is not counted.
  string(APPEND arrays "constexpr unsigned char kFile${number}[] = {${bytes}0};\n")
  string(APPEND entries "      {\"${name}\", text(kFile${number}, sizeof kFile${number} - 1)},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(WRITE ${OUTPUT} "// Written by cmake/embed.cmake.
#include \"base/embedded_file.h\"

namespace tolvex::sim {

namespace {

${arrays}
[[maybe_unused]] std::string_view text(const unsigned char* bytes, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes), size};
}

}  // namespace

const std::vector<EmbeddedFile>& embeddedFiles() {
  static const std::vector<EmbeddedFile> files{
${entries}  };
  return files;
}

}  // namespace tolvex::sim
")
