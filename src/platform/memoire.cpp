#include "platform/memoire.h"

#include <cstdint>

#if defined(__unix__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace arbolix {

void RendrePages(char* debut, std::size_t taille) {
#if defined(__unix__)
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto a = reinterpret_cast<std::uintptr_t>(debut);
    const std::uintptr_t premier = (a + page - 1) / page * page;  // arrondis vers l'intérieur
    const std::uintptr_t fin = (a + taille) / page * page;
    if (fin > premier) madvise(reinterpret_cast<void*>(premier), fin - premier, MADV_DONTNEED);
#else
    (void)debut;
    (void)taille;
#endif
}

void PreferGrandesPages(char* debut, std::size_t taille) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto a = reinterpret_cast<std::uintptr_t>(debut);
    const std::uintptr_t premier = (a + page - 1) / page * page;
    const std::uintptr_t fin = (a + taille) / page * page;
    if (fin > premier) madvise(reinterpret_cast<void*>(premier), fin - premier, MADV_HUGEPAGE);
#else
    (void)debut;
    (void)taille;
#endif
}

}  // namespace arbolix
