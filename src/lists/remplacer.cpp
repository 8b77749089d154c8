#include "lists/remplacer.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <vector>

#include "card/metiers.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

const std::array<EntreeRechRemp, 6> kRechRemp = {{
    {ChampRemp::Nom, &ListesSaisie::Nom, " nom", "nom", "Remplacer le nom "},
    {ChampRemp::NomTri, &ListesSaisie::Nom, " nom de tri", "nom de tri", "Remplacer dans les tris le nom "},
    {ChampRemp::Prenom, &ListesSaisie::Prenoms, " pr\xE9nom", "pr\xE9nom", "Remplacer le pr\xE9nom "},
    {ChampRemp::Metier, &ListesSaisie::Metier, " m\xE9tier", "m\xE9tier", "Remplacer la profession "},
    {ChampRemp::Lieu, &ListesSaisie::Lieu, " lieu", "lieu", "Remplacer le lieu "},
    {ChampRemp::Source, &ListesSaisie::Source, "e source", "source", "Remplacer la source "},
}};

namespace {

constexpr const char* kAttention =
    "Attention ! Vous allez modifier beaucoup de donn\xE9"
    "es. Confirmez votre intention.";

// Chaque octet replié sur sa minuscule sans accent, un pour un : les positions d'un texte replié
// sont celles du texte d'origine. Æ et Œ, qui feraient deux lettres, restent en minuscule.
struct TableRepli {
    std::array<char, 256> c{};
    TableRepli() {
        for (int i = 0; i < 256; ++i) {
            const char o = static_cast<char>(i);
            c[i] = Minuscule1252(o);
            if (i < 0x80) continue;
            const std::string r = SansAccents(std::string_view(&o, 1), false);
            if (r.size() == 1 && r != "_") c[i] = Minuscule1252(r[0]);
        }
    }
};

char Repli(char c) {
    static const TableRepli table;
    return table.c[static_cast<unsigned char>(c)];
}

// Remplace chaque occurrence de motif (déjà replié) dans t, sans regarder casse ni accents.
std::int32_t RemplacerSansCasse(Texte& t, std::string_view motif, std::string_view nouveau) {
    const std::string_view s = t.vue();
    if (motif.empty() || s.size() < motif.size()) return 0;
    std::string resultat;
    std::int32_t n = 0;
    std::size_t copie = 0;
    for (std::size_t i = 0; i + motif.size() <= s.size();) {
        std::size_t k = 0;
        while (k < motif.size() && Repli(s[i + k]) == motif[k]) ++k;
        if (k < motif.size()) {
            ++i;
            continue;
        }
        resultat.append(s.substr(copie, i - copie)).append(nouveau);
        i += motif.size();
        copie = i;
        ++n;
    }
    if (n == 0) return 0;
    resultat.append(s.substr(copie));
    t = resultat;
    return n;
}

std::string Replie(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = Repli(c);
    return r;
}

// Les rangées de la liste de valeurs : l'ancienne part, la nouvelle prend sa place une seule fois.
void RemplacerRangee(ListePersonne& liste, std::string_view ancien, std::string_view nouveau) {
    std::erase_if(liste.Rangees, [&](const Rangee& r) { return r.texte == ancien; });
    const bool deja = std::any_of(liste.Rangees.begin(), liste.Rangees.end(),
                                  [&](const Rangee& r) { return r.texte == nouveau; });
    if (!deja) AjouterTriee(liste, std::string(nouveau), 0);
}

// Les sept évènements des fiches en usage ; une fiche dont un acte change est datée quand
// aujourdhui est donné. Rend le nombre de fiches changées.
template <typename Action>
std::int32_t PourChaqueActe(Base& base, bool seulementSel, std::optional<double> aujourdhui,
                            Action&& action) {
    std::int32_t n = 0;
    const auto fiche = [&](auto& f, std::initializer_list<Acte*> actes) {
        bool change = false;
        for (Acte* a : actes) change |= action(*a);
        if (!change) return;
        ++n;
        if (aujourdhui) f.DateModif = *aujourdhui;
    };
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& lu = std::as_const(base.Persos)[i];
        if (lu.Prenoms.empty() || (seulementSel && lu.Sel == 0)) return;
        Perso& p = base.Persos[i];
        fiche(p, {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture});
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        if (seulementSel && std::as_const(base.Familles)[i].Sel == 0) return;
        Fami& f = base.Familles[i];
        fiche(f, {&f.Mariage, &f.Contrat, &f.Divorce});
    });
    return n;
}

std::int32_t RemplacerChampPersonne(Base& base, ChampRemp champ, std::string_view ancien,
                                    std::string_view nouveau, double aujourdhui) {
    std::int32_t n = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& lu = std::as_const(base.Persos)[i];
        if (lu.Prenoms.empty() || lu.Sel == 0) return;
        const Texte& valeur = champ == ChampRemp::Prenom   ? lu.Prenoms
                              : champ == ChampRemp::Metier ? lu.Metier
                                                           : lu.Nom;
        if (valeur != ancien) return;
        Perso& p = base.Persos[i];
        if (champ == ChampRemp::Nom) {
            p.Nom = nouveau;
            p.CodeNom = CodeSon(nouveau);
            p.NomTri = NomTri(nouveau);
        } else if (champ == ChampRemp::NomTri) {
            p.NomTri = nouveau;
        } else if (champ == ChampRemp::Prenom) {
            p.Prenoms = nouveau;
        } else {
            // Les codes de métier suivent le texte : l'ancien métier n'y reste pas.
            p.CodesMetiers.clear();
            EnregistrerMetier(p, nouveau, base.Listes.Metier);
        }
        p.DateModif = aujourdhui;
        ++n;
    });
    return n;
}

// L'avertissement puis les deux saisies des commandes sur toutes les notes ou tous les lieux.
std::optional<std::pair<std::string, std::string>> DemanderTextes(Dialogue& d, std::string_view quoi) {
    const std::string fin = std::string(" dans ") + std::string(quoi);
    if (d.Message("Rechercher/remplacer" + fin, kAttention, Icone::Attention, Boutons::OkAnnuler,
                  Bouton::Annuler) != Bouton::Ok)
        return std::nullopt;
    const std::string titre = "Rechercher/Remplacer" + fin;
    const auto texte = d.Saisie(titre,
                                "Entrez le texte \xE0 rechercher :\r\n"
                                "(inutile de respecter les majuscules et accents)",
                                "");
    if (!texte || texte->empty()) return std::nullopt;
    const auto nouveau = d.Saisie(titre,
                                  "Entrez le texte de remplacement pour\r\n" + *texte +
                                      "\r\n(en respectant les majuscules et accents) :",
                                  *texte);
    if (!nouveau) return std::nullopt;
    return std::make_pair(*texte, *nouveau);
}

}  // namespace

const EntreeRechRemp* EntreeDuGenre(std::string_view genre) {
    for (const auto& e : kRechRemp)
        if (genre == e.genre) return &e;
    return nullptr;
}

bool ListerValeurs(const Base& base, const EntreeRechRemp& e, bool confirmer, Dialogue& dialogue,
                   ListePersonne& cible) {
    const ListeChoix& source = base.Listes.*e.source;
    if (source.empty()) {
        dialogue.Message(
            "Pas de donn\xE9"
            "es disponibles",
            "La liste est vide.", Icone::Information);
        return false;
    }
    std::string libelle = e.libelle;
    std::erase(libelle, '&');
    if (confirmer && dialogue.Message("Rechercher/remplacer un" + libelle, kAttention, Icone::Attention,
                                      Boutons::OkAnnuler, Bouton::Annuler) != Bouton::Ok)
        return false;
    OuvrirListe(cible, e.genre, "Rechercher un" + libelle, "", true);
    for (std::string& v : source.Triee()) cible.Rangees.push_back({std::move(v), 0});
    return true;
}

std::int32_t RemplacerValeur(Base& base, ChampRemp champ, std::string_view ancien, std::string_view nouveau,
                             double aujourdhui, ListePersonne* liste) {
    if (ancien.empty() || nouveau.empty()) return 0;
    const std::string a(ancien), nv(nouveau);  // ancien peut venir d'une rangée que l'on retire
    if (liste) RemplacerRangee(*liste, a, nv);
    std::int32_t n = 0;
    if (champ == ChampRemp::Lieu || champ == ChampRemp::Source) {
        ListeChoix& l = champ == ChampRemp::Lieu ? base.Listes.Lieu : base.Listes.Source;
        l.Retirer(a);
        l.Ajouter(nv);
        Texte Acte::*c = champ == ChampRemp::Lieu ? &Acte::Lieu : &Acte::Source;
        n = PourChaqueActe(base, true, aujourdhui, [&](Acte& acte) {
            if (acte.*c != std::string_view(a)) return false;
            acte.*c = nv;
            return true;
        });
    } else {
        if (champ != ChampRemp::NomTri) {
            ListeChoix& l = champ == ChampRemp::Nom      ? base.Listes.Nom
                            : champ == ChampRemp::Prenom ? base.Listes.Prenoms
                                                         : base.Listes.Metier;
            l.Retirer(a);
            l.Ajouter(nv);
        }
        n = RemplacerChampPersonne(base, champ, a, nv, aujourdhui);
    }
    if (n > 0) base.FichierModifie = kVrai;
    return n;
}

std::int32_t DemanderRemplacement(Base& base, const EntreeRechRemp& e, ListePersonne& liste,
                                  std::size_t rangee, Dialogue& dialogue, double aujourdhui) {
    if (rangee >= liste.Rangees.size()) return 0;
    const std::string ancien = liste.Rangees[rangee].texte;
    const auto nouveau = dialogue.Saisie("Rechercher/remplacer", e.invite + ancien + " par", ancien);
    if (!nouveau || nouveau->empty()) return 0;
    return RemplacerValeur(base, e.champ, ancien, *nouveau, aujourdhui, &liste);
}

std::int32_t RemplacerDansNotes(Base& base, std::string_view texte, std::string_view nouveau) {
    const std::string motif = Replie(texte);
    if (motif.empty()) return 0;
    std::int32_t n = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& lu = std::as_const(base.Persos)[i];
        if (lu.Prenoms.empty()) return;
        Perso& p = base.Persos[i];
        for (Texte* t : {&p.Notes, &p.Naissance.Notes, &p.Bapteme.Notes, &p.Deces.Notes, &p.Sepulture.Notes})
            n += RemplacerSansCasse(*t, motif, nouveau);
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        Fami& f = base.Familles[i];
        for (Texte* t : {&f.Mariage.Notes, &f.Contrat.Notes, &f.Divorce.Notes})
            n += RemplacerSansCasse(*t, motif, nouveau);
    });
    return n;
}

std::int32_t RemplacerLieux(Base& base, std::string_view ancien, std::string_view nouveau) {
    const std::string motif = Replie(ancien);
    if (motif.empty()) return 0;
    std::int32_t n = 0;
    PourChaqueActe(base, false, std::nullopt, [&](Acte& a) {
        const std::int32_t k = RemplacerSansCasse(a.Lieu, motif, nouveau);
        n += k;
        return k > 0;
    });
    if (n > 0) base.FichierModifie = kVrai;
    // La liste des lieux suit : chaque valeur refaite, les doublons fondus.
    std::vector<std::string> valeurs = base.Listes.Lieu.Triee();
    base.Listes.Lieu.clear();
    for (const std::string& v : valeurs) {
        Texte t(v);
        RemplacerSansCasse(t, motif, nouveau);
        base.Listes.Lieu.Ajouter(t.vue());
    }
    return n;
}

std::int32_t MenuRechRempNotes(Base& base, Dialogue& dialogue) {
    const auto textes = DemanderTextes(dialogue, "toutes les notes");
    if (!textes) return -1;
    base.FichierModifie = kVrai;
    return RemplacerDansNotes(base, textes->first, textes->second);
}

std::int32_t MenuRechRempTousLieux(Base& base, Dialogue& dialogue) {
    const auto textes = DemanderTextes(dialogue, "tous les lieux");
    if (!textes) return -1;
    base.FichierModifie = kVrai;
    return RemplacerLieux(base, textes->first, textes->second);
}

}  // namespace arbolix
