#include "store/decrire_base.h"

#include <type_traits>
#include <utility>

namespace arbolix {

namespace {

// Accumule les champs non vides d'une fiche.
class Description {
public:
    void Champ(std::string_view nom, std::string_view valeur) {
        if (valeur.empty()) return;
        if (!texte_.empty()) texte_ += "; ";
        texte_ += nom;
        texte_ += '=';
        for (std::size_t i = 0; i < valeur.size(); ++i) {
            if (valeur[i] == '\r' && i + 1 < valeur.size() && valeur[i + 1] == '\n') {
                texte_ += "\\n";
                ++i;
            } else {
                texte_ += valeur[i];
            }
        }
    }
    void Nombre(std::string_view nom, std::int64_t n) {
        if (n != 0) Champ(nom, std::to_string(n));
    }
    template <typename E>
    void Liste(std::string_view nom, const E& emplacements) {
        std::string v;
        for (const auto& [i, valeur] : emplacements) {
            if (!v.empty()) v += ',';
            if constexpr (std::is_same_v<std::decay_t<decltype(valeur)>, Texte>)
                v += valeur.vue();
            else
                v += std::to_string(valeur);
        }
        Champ(nom, v);
    }
    void Acte(std::string_view nom, const arbolix::Acte& a) {
        const std::string n(nom);
        Champ(n + ".Date", a.Date);
        if (a.Connu) Champ(n + ".Connu", "Y");

        Champ(n + ".Lieu", a.Lieu);
        Champ(n + ".Notes", a.Notes);
        Champ(n + ".Source", a.Source);
        Liste(n + ".Medias", a.Liens().Medias);
        std::string temoins;
        for (const auto& [i, t] : a.Liens().Temoins) {
            if (!temoins.empty()) temoins += ',';
            temoins += std::to_string(t);
            if (const Texte& role = a.Liens().RolesTemoins(i); !role.empty()) temoins += "(" + role + ")";
        }
        Champ(n + ".Temoins", temoins);
    }
    std::string Fin() { return std::move(texte_); }

private:
    std::string texte_;
};

}  // namespace

std::string DecrirePerso(const Base& base, std::int32_t n) {
    const Perso& p = std::as_const(base.Persos)[n];
    Description d;
    d.Champ("Nom", p.Nom);
    d.Champ("Prenoms", p.Prenoms);
    d.Champ("NomTri", p.NomTri);
    d.Champ("CodeNom", p.CodeNom);
    if (p.Sexe != ' ') d.Champ("Sexe", std::string(1, p.Sexe));
    d.Champ("Metier", p.Metier);
    d.Champ("CodesMetiers", p.CodesMetiers);
    d.Champ("Titre", p.Titre);
    d.Acte("Naissance", p.Naissance);
    d.Acte("Bapteme", p.Bapteme);
    d.Acte("Deces", p.Deces);
    d.Acte("Sepulture", p.Sepulture);
    d.Nombre("NumParents", p.NumParents);
    std::string unions;
    for (int i = 1; i <= kMaxUnions; ++i)
        if (p.Unions[i] != 0) {
            if (!unions.empty()) unions += ',';
            unions += std::to_string(p.Unions[i]);
        }
    d.Champ("Unions", unions);
    d.Champ("Notes", p.Notes);
    const PersoSuite& s = p.Suite();
    d.Champ("Adresse1", s.Adresse1);
    d.Champ("Adresse2", s.Adresse2);
    d.Champ("Etat", s.Etat);
    d.Champ("CP", s.CP);
    d.Champ("Ville", s.Ville);
    d.Champ("Pays", s.Pays);
    d.Champ("Telephone", s.Telephone);
    d.Champ("EMail", s.EMail);
    d.Champ("URL", s.URL);
    d.Champ("Ref", s.Ref);
    d.Liste("Fichiers", s.Fichiers);
    d.Liste("ObjetsMedia", s.ObjetsMedia);
    d.Nombre("Interet", p.Interet);
    if (p.DateModif != 0) d.Champ("DateModif", std::to_string(static_cast<std::int64_t>(p.DateModif)));
    return d.Fin();
}

std::string DecrireFami(const Base& base, std::int32_t f) {
    const Fami& fa = std::as_const(base.Familles)[f];
    Description d;
    d.Nombre("Mari", fa.Mari);
    d.Nombre("Femme", fa.Femme);
    d.Acte("Contrat", fa.Contrat);
    d.Acte("Mariage", fa.Mariage);
    d.Acte("Divorce", fa.Divorce);
    d.Liste("Enfants", fa.Enfants);
    if (fa.DateModif != 0) d.Champ("DateModif", std::to_string(static_cast<std::int64_t>(fa.DateModif)));
    return d.Fin();
}

std::string DecrireNote(const NoteExt& note) {
    Description d;
    d.Champ("Titre", note.Titre);
    d.Champ("Texte", note.Texte);
    d.Liste("LiensPersos", note.LiensPersos);
    d.Liste("LiensFamis", note.LiensFamis);
    return d.Fin();
}

std::string DecrireMedia(const ObjetMedia& o) {
    Description d;
    d.Liste("Fichiers", o.Fichiers);
    d.Liste("Titres", o.Titres);
    d.Nombre("Local", o.Local);
    d.Nombre("Actif", o.Actif);
    d.Liste("LiensPersos", o.LiensPersos);
    d.Liste("LiensFamis", o.LiensFamis);
    d.Nombre("TypeActe", o.TypeActe);
    d.Nombre("NumNote", o.NumNote);
    d.Nombre("NumSource", o.NumSource);
    return d.Fin();
}

std::string DecrireBase(const Base& base) {
    std::string r;
    auto ligne = [&r](char genre, std::int32_t n, const std::string& description) {
        if (description.empty()) return;
        r += genre + std::to_string(n) + " " + description + "\n";
    };
    for (std::int32_t n = -1; n <= base.NbPersos && n <= base.Persos.Haut(); ++n)
        ligne('P', n, DecrirePerso(base, n));
    for (std::int32_t f = 1; f <= base.NbFamis && f <= base.Familles.Haut(); ++f)
        ligne('F', f, DecrireFami(base, f));
    for (std::int32_t n = -1; n <= base.NbNotes && n <= base.Notes.Haut(); ++n)
        ligne('N', n, DecrireNote(std::as_const(base.Notes)[n]));
    for (std::int32_t n = -1; n <= base.NbSources && n <= base.Sources.Haut(); ++n)
        ligne('S', n, DecrireNote(std::as_const(base.Sources)[n]));
    for (std::int32_t m = 1; m <= base.NbMedias && m <= base.Medias.Haut(); ++m)
        ligne('M', m, DecrireMedia(std::as_const(base.Medias)[m]));
    return r;
}

}  // namespace arbolix
