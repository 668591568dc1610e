// The picture library, with the formats that are in use and nothing that opens files.
#pragma once

#define STBI_ONLY_BMP
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_FAILURE_STRINGS
#include <stb/stb_image.h>

#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
