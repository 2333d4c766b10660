#include "render/tracer.h"
#define KIRAMEKI_PLANE_SEARCH plane_search_generic
#include "render/plane_search_impl.inc"

namespace kirameki {

PlaneSearch SelectPlaneSearch() {
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return {plane_search_avx2::FindEntryFaces, plane_search_avx2::FindExitFace,
                bundle_walk_avx2::Walk};
    return {plane_search_generic::FindEntryFaces, plane_search_generic::FindExitFace, nullptr};
}

}  // namespace kirameki
