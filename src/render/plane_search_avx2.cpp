#include "render/tracer.h"
#define KIRAMEKI_PLANE_SEARCH plane_search_avx2
#include "render/plane_search_impl.inc"
