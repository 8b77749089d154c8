#include "platform/memoire.h"

#include <cstdint>
#include <fstream>

#if defined(__unix__)
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#include "platform/en_meme_temps.h"

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

#if defined(__unix__)
namespace {

bool LireMorceau(int fd, char* debut, std::size_t taille, std::size_t depuis) {
    while (taille > 0) {
        const ssize_t lus = pread(fd, debut, taille, static_cast<off_t>(depuis));
        if (lus <= 0) return false;
        const auto n = static_cast<std::size_t>(lus);
        debut += n;
        depuis += n;
        taille -= n;
    }
    return true;
}

// faire(debut, fin) sur tout le fichier, en deux moitiés s'il est grand ; vrai si chacune.
template <typename Faire>
bool SurLeFichier(std::size_t taille, Faire&& faire) {
    if (taille < kSeuilDeuxMoities) return faire(std::size_t{0}, taille);
    const auto [premiere, seconde] = EnDeuxMoities(0, taille, faire);
    return premiere && seconde;
}

}  // namespace

bool LireOctets(const std::string& chemin, std::size_t taille, std::string& contenu) {
    const int fd = open(chemin.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    contenu.reserve(taille);
    // Les pages d'abord, dans la réserve : la mise à la taille qui suit écrit des zéros partout, et
    // ferait sinon toutes les fautes de page sur ce seul fil.
    char* const debut = contenu.data();
#if defined(MADV_HUGEPAGE)
    // De grandes pages : chaque parcours du tampon entier et chaque page rendue en font moins
    // de fautes et de traductions d'adresses, surtout dans une machine virtuelle.
    if (taille >= kSeuilDeuxMoities) Conseiller(debut, taille, MADV_HUGEPAGE);
#endif
    SurLeFichier(taille, [&](std::size_t de, std::size_t a) {
        PreparerPages(debut + de, a - de);
        return true;
    });
    contenu.resize(taille);
    const bool lu = SurLeFichier(taille, [&](std::size_t de, std::size_t a) {
        return LireMorceau(fd, contenu.data() + de, a - de, de);
    });
    close(fd);
    return lu;
}
#else
bool LireOctets(const std::string& chemin, std::size_t taille, std::string& contenu) {
    std::ifstream f(chemin, std::ios::binary);
    if (!f) return false;
    contenu.resize(taille);
    f.read(contenu.data(), static_cast<std::streamsize>(taille));
    return f.gcount() == static_cast<std::streamsize>(taille);
}
#endif

}  // namespace arbolix
