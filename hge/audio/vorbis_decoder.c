/* Whatever the build: a nonsense file must not end the program. */
#undef NDEBUG
#define NDEBUG
/* The decoder as the distribution ships it, built as one file of its own with its warnings off. */
#define STB_VORBIS_NO_STDIO
#define STB_VORBIS_NO_PUSHDATA_API
#include <stb_vorbis.h>
