#include "card/dupliquer.h"

#include <string>
#include <utility>

#include "store/liens.h"

namespace arbolix {

namespace {

constexpr const char* kTitre = "Dupliquer";

void LierParents(Edition& e, std::int32_t s, std::int32_t d) {
    Base& base = e.base;
    const std::int32_t f = std::as_const(base.Persos)[s].NumParents;
    if (!DansTableau(f, base.Familles.Haut())) return;
    auto& enfants = base.Familles[f].Enfants;
    const int place = enfants.PremierLibre(1);
    if (place > kMaxEnfants) {
        e.dialogue.Message(kTitre,
                           "Impossible de dupliquer le lien vers les parents car le nombre maximum "
                           "d'enfants par couple est atteint.",
                           Icone::Attention);
        return;
    }
    enfants.Fixer(place, d);
    base.Persos[d].NumParents = f;
}

void LierMedias(Edition& e, std::int32_t s, std::int32_t d) {
    Base& base = e.base;
    const PersoSuite& source = std::as_const(base.Persos)[s].Suite();
    if (source.ObjetsMedia.empty() && source.Fichiers.empty()) return;
    PersoSuite& copie = base.Persos[d].SuiteModif();
    copie.Fichiers = source.Fichiers;
    copie.ObjetsMedia = source.ObjetsMedia;
    for (const auto& [i, m] : source.ObjetsMedia) {
        if (!DansTableau(m, base.Medias.Haut())) continue;
        // Le numéro reste chez la copie même sans place chez l'objet : le lien est écrit, sans retour.
        if (!PlacerPremierLibre(base.Medias[m].LiensPersos, d))
            e.dialogue.Message(kTitre,
                               "Impossible d'ajouter le lien complet vers le fichier " +
                                   std::as_const(base.Medias)[m].Fichiers(1),
                               Icone::Attention);
    }
}

}  // namespace

std::int32_t DupliquerPersonne(Edition& e, std::int32_t s) {
    Base& base = e.base;
    if (!PersonneExiste(base, s)) return 0;
    const std::int32_t d = NouvellePersonne(base, true, e.reutiliserLibres);
    const Perso& source = std::as_const(base.Persos)[s];
    Perso& copie = base.Persos[d];
    copie.Nom = source.Nom;
    copie.NomTri = source.NomTri;
    copie.CodeNom = source.CodeNom;
    copie.Sexe = source.Sexe;
    copie.DateModif = e.maintenant;
    LierParents(e, s, d);
    LierMedias(e, s, d);
    base.NumCourant = d;
    return d;
}

}  // namespace arbolix
