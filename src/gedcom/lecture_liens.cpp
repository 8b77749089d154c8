#include "gedcom/lecture_liens.h"

#include <algorithm>
#include <utility>

#include "gedcom/lecteur_gedcom.h"
#include "store/chaines.h"

namespace arbolix {

bool EstPointeur(std::string_view v) {
    return v.size() >= 3 && v.front() == '@' && v.back() == '@' && v.find(' ') == std::string_view::npos;
}

void Ajouter(Texte& champ, std::string_view sep, std::string_view valeur) {
    if (valeur.empty()) return;
    if (champ.empty()) {
        champ = valeur;
        return;
    }
    champ += sep;
    champ += valeur;
}

void AssurerPlace(Base& base, std::int64_t numero) {
    if (numero > kNumeroMaximal) throw ErreurExecution(6, "D\xE9passement de capacit\xE9");
    if (numero > base.Persos.Haut() || numero > base.MaxFiches)
        RedimensionnerBase(base, static_cast<std::int32_t>((numero / 5000 + 1) * 5000));
}

std::string LienLu(LecteurGedcom& l, std::string_view pointeur, char genre) {
    const std::int32_t decalage = genre == 'N' ? l.DecalageNotes : l.DecalageSources;
    const std::int64_t n =
        static_cast<std::int64_t>(decalage) +
        l.NumeroLu(Depuis(pointeur, 2), false, l.Renumeroter,
                   genre == 'N' ? LecteurGedcom::Genre::Note : LecteurGedcom::Genre::Source);
    AssurerPlace(l.base_, n);
    std::string lien = "@";
    lien += genre;
    lien += std::to_string(n);
    lien += '@';
    return lien;
}

std::int32_t ObjetAuChemin(const Base& b, const Emplacements<std::int32_t, 1, kMaxLiens>& objets,
                           std::string_view chemin) {
    for (const auto& [i, m] : objets)
        if (m > 0 && m <= b.Medias.Haut() && Contient(b.Medias[m].Fichiers, Texte(chemin))) return m;
    return 0;
}

namespace {

constexpr Acte Perso::*kActesAvecObjets[] = {&Perso::Naissance, &Perso::Bapteme, &Perso::Deces,
                                             &Perso::Sepulture};

}  // namespace

bool ObjetDeLaPersonne(const Perso& p, std::int32_t m) {
    if (Contient(p.Suite().ObjetsMedia, m)) return true;
    for (const auto acte : kActesAvecObjets)
        if (Contient((p.*acte).Liens().Medias, m)) return true;
    return false;
}

std::int32_t ObjetDeLaPersonneAuChemin(const Base& b, const Perso& p, std::string_view chemin) {
    std::int32_t m = ObjetAuChemin(b, p.Suite().ObjetsMedia, chemin);
    for (const auto acte : kActesAvecObjets)
        if (!m) m = ObjetAuChemin(b, (p.*acte).Liens().Medias, chemin);
    return m;
}

namespace {

template <typename E>
void Renumeroter(E& emplacements, std::int32_t ancien, std::int32_t neuf) {
    for (int i = E::kPremier; i <= E::kDernier; ++i)
        if (emplacements(i) == ancien) emplacements.Fixer(i, neuf);
}

void RenumeroterActe(Acte& a, std::int32_t ancien, std::int32_t neuf) {
    if (Contient(a.Liens().Medias, ancien)) Renumeroter(a.LiensModif().Medias, ancien, neuf);
}

// L'objet local m part au numéro neuf ; les fiches qui le portaient suivent.
void DeplacerObjetLocal(LecteurGedcom& l, std::int32_t m, std::int32_t neuf) {
    Base& b = l.base_;
    b.Medias[neuf] = std::move(b.Medias[m]);
    b.Medias[m] = ObjetMedia{};
    const ObjetMedia& o = std::as_const(b.Medias)[neuf];
    for (const auto& [i, p] : o.LiensPersos) {
        Perso& pe = b.Persos[p];
        if (Contient(pe.Suite().ObjetsMedia, m)) Renumeroter(pe.SuiteModif().ObjetsMedia, m, neuf);
        for (Acte* a : {&pe.Naissance, &pe.Bapteme, &pe.Deces, &pe.Sepulture}) RenumeroterActe(*a, m, neuf);
    }
    for (const auto& [i, f] : o.LiensFamis) {
        Fami& fa = b.Familles[f];
        for (Acte* a : {&fa.Mariage, &fa.Contrat, &fa.Divorce}) RenumeroterActe(*a, m, neuf);
    }
}

std::int32_t NumeroLibre(LecteurGedcom& l) {
    const std::int32_t m = ++l.DernierMedia;
    AssurerPlace(l.base_, m);
    return m;
}

}  // namespace

std::int32_t MediaDuPointeur(LecteurGedcom& l, std::string_view pointeur) {
    const std::int64_t m = static_cast<std::int64_t>(l.DecalageMedias) +
                           l.NumeroLu(Depuis(pointeur, 2), false, l.Renumeroter, LecteurGedcom::Genre::Media);
    AssurerPlace(l.base_, m);
    const auto n = static_cast<std::int32_t>(m);
    if (std::as_const(l.base_.Medias)[n].Local != 0) DeplacerObjetLocal(l, n, NumeroLibre(l));
    l.DernierMedia = std::max(l.DernierMedia, n);
    return n;
}

std::int32_t NouvelObjetLocal(LecteurGedcom& l, std::string_view chemin) {
    const std::int32_t m = NumeroLibre(l);
    ++l.base_.NbMediasReels;
    ObjetMedia& o = l.base_.Medias[m];
    o.Local = -1;
    o.Actif = -1;
    o.Fichiers.Fixer(1, Texte(chemin));
    return m;
}

}  // namespace arbolix

namespace arbolix {

void LecteurGedcom::NouvelleFiche() {
    Ligne1 = {};
    Ligne2 = {};
    TemoinEnAttente = 0;
    NiveauObjet = 0;
    ObjetDuBloc = 0;
    TitreDuBloc.clear();
}

void LecteurGedcom::PreparerLigne() {
    NiveauLigne = Niveau();
    if (NiveauObjet > 0 && NiveauLigne <= NiveauObjet) NiveauObjet = 0;
    // Une ligne de niveau 1 ferme le contexte de niveau 2 et le témoin qui attendait son rôle.
    if (NiveauLigne <= 1) {
        Ligne2 = {};
        TemoinEnAttente = 0;
    }
    if (NiveauLigne <= 2) Balise3.clear();
    Decouper();
    if (NiveauLigne == 3) Balise3 = Balise;
    // Seule la suite directe d'une source de niveau 2 en est le texte : plus bas, elle continue
    // une ligne de la citation (3 NOTE, 3 DATA...).
    if (NiveauLigne == 3 && (EstBalise(Balise, "CONT") || EstBalise(Balise, "CONC")) &&
        Contexte2() == "SOUR") {
        if (EstBalise(Balise, "CONT")) {
            // D'ordinaire, le blanc qui sépare la balise de la valeur est là, juste devant.
            const bool blancDevant = !LigneCourante.empty() && LigneCourante.data() > tampon_.data() &&
                                     LigneCourante.data() <= tampon_.data() + tampon_.size() &&
                                     LigneCourante.data()[-1] == ' ';
            if (blancDevant)
                LigneCourante = {LigneCourante.data() - 1, LigneCourante.size() + 1};
            else
                LigneCourante = Retoucher(" " + std::string(LigneCourante));
        }
        Balise = "TEXT";
    }
}

std::int32_t LecteurGedcom::PersonneDuPointeur(std::string_view pointeur) {
    const std::int32_t n = NumeroLu(Depuis(pointeur, 2), Renumeroter, Renumeroter, Genre::Personne);
    const std::int64_t t = static_cast<std::int64_t>(base_.NbPersos) + n;
    AssurerPlace(base_, t);
    if (t > MaxPersos) MaxPersos = static_cast<std::int32_t>(t);
    return static_cast<std::int32_t>(t);
}

ContexteDate LecteurGedcom::ContexteDeDate() {
    ContexteDate c;
    c.NumLigne = NumLigne;
    c.LigneCourante = LigneCourante;
    c.Ligne1 = Ligne1;
    c.NumCourant = base_.NumCourant;
    c.NbFamis = NbFamisLues;
    c.ConvCalRep = contexte_.options.OptConvCalRep;
    c.Dates = cases_.Dates;
    c.GedcomVisible = true;
    c.EvenementVisible = false;
    c.Journal = &resultat_.Journal;
    return c;
}

namespace {

constexpr std::size_t kPrefixesRetenus = 32;

bool Retenu(const std::vector<std::string>& v, std::string_view p) {
    for (const auto& s : v)
        if (s == p) return true;
    return false;
}

void Retenir(std::vector<std::string>& v, std::string_view p) {
    if (!Retenu(v, p) && v.size() < kPrefixesRetenus) v.emplace_back(p);
}

}  // namespace

void LecteurGedcom::NoterPrefixe(std::string_view identifiant, bool famille) {
    if (const auto p = PrefixeDeFiche(identifiant))
        Retenir(famille ? PrefixesFamilles : PrefixesPersonnes, *p);
}

void LecteurGedcom::ParcourirPrefixes() {
    PrefixesParcourus = true;
    // Les fiches déjà lues ont laissé leur préfixe ; s'y ajoutent, dans l'ordre, ceux des fiches
    // qui restent, relevées d'avance pour tout le fichier ou cherchées maintenant.
    const std::size_t seuil = pos_ >= 2 ? pos_ : 2;
    PrefixesDesFiches ici;
    const ReleveFichier* releve = releve_.Attendre();
    if (!releve) ici = ReleverPrefixes(tampon_, pos_);
    const PrefixesDesFiches& p = releve ? releve->prefixes : ici;
    for (const auto& s : p.personnes)
        if (s.derniere >= seuil) Retenir(PrefixesPersonnes, s.prefixe);
    for (const auto& s : p.familles)
        if (s.derniere >= seuil) Retenir(PrefixesFamilles, s.prefixe);
}

bool LecteurGedcom::DesigneUneFamille(std::string_view pointeur) {
    const std::string_view id = Depuis(pointeur, 2);
    if (id.find_first_of("0123456789") == std::string_view::npos) return false;
    const std::string_view p = PrefixeDe(id);
    // Le préfixe d'une fiche de personne déjà lue ne désigne jamais une famille : le premier
    // témoin d'un grand fichier n'attend pas le relevé du fichier entier.
    if (Retenu(PrefixesPersonnes, p)) return false;
    if (!PrefixesParcourus) ParcourirPrefixes();
    return Retenu(PrefixesFamilles, p) && !Retenu(PrefixesPersonnes, p);
}

}  // namespace arbolix
