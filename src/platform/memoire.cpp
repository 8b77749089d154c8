#include "platform/memoire.h"

#include <cstdint>

#if defined(__unix__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace arbolix {

#if defined(__unix__)
namespace {

// Conseille le système sur les pages entièrement comprises dans [debut, debut + taille) :
// arrondies vers l'intérieur, celles des voisins n'en sont pas touchées.
void Conseiller(char* debut, std::size_t taille, int conseil) {
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto a = reinterpret_cast<std::uintptr_t>(debut);
    const std::uintptr_t premier = (a + page - 1) / page * page;
    const std::uintptr_t fin = (a + taille) / page * page;
    if (fin > premier) madvise(reinterpret_cast<void*>(premier), fin - premier, conseil);
}

}  // namespace
#endif

void RendrePages(char* debut, std::size_t taille) {
#if defined(__unix__)
    Conseiller(debut, taille, MADV_DONTNEED);
#else
    (void)debut;
    (void)taille;
#endif
}

void PreparerPages(char* debut, std::size_t taille) {
#if defined(__linux__) && defined(MADV_POPULATE_WRITE)
    Conseiller(debut, taille, MADV_POPULATE_WRITE);
#else
    (void)debut;
    (void)taille;
#endif
}

}  // namespace arbolix
