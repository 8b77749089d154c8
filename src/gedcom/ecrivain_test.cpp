#include "gedcom/ecrivain.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "dates/calendrier_gregorien.h"
#include "gedcom/comparaison_test.h"

namespace arbolix {
namespace {

using essais::CommeReference;
using essais::MemesOctets;

const std::filesystem::path kReferences = std::filesystem::path(ARBOLIX_DONNEES) / "ecriture";
const std::string kEntete = EnteteGedcom("Arbolix", "test", "Projet Arbolix", "Essais");

Perso& Personne(Base& b, std::int32_t n, std::string_view prenoms, std::string_view nom, char sexe,
                Drapeau sel = kVrai) {
    Perso& p = b.Persos[n];
    p.Prenoms = prenoms;
    p.Nom = nom;
    p.Sexe = sexe;
    p.Sel = sel;
    b.NbPersos = std::max(b.NbPersos, n);
    ++b.NbPersosReels;
    return p;
}

void Dater(Acte& a, std::string_view date, std::int16_t annee) {
    a.Date = date;
    a.Annee = annee;
}

void Temoin(Acte& a, int i, std::int32_t p, std::string_view role) {
    a.LiensModif().Temoins.Fixer(i, p);
    a.LiensModif().RolesTemoins.Fixer(i, Texte(role));
}

void Note(NoteExt& n, std::string_view titre, std::string_view texte, Drapeau sel) {
    n.Titre = titre;
    n.Texte = texte;
    n.Sel = sel;
}

// Une base qui passe par chaque forme de ligne de l'écrivain.
Base BaseRiche() {
    Base b;
    Perso& g = b.Persos[-1];
    g.Nom = "Durand";
    g.Prenoms = "Alice";
    {
        PersoSuite& s = g.SuiteModif();
        s.Adresse1 = "1 place du March\xE9";
        s.Ville = "Caen";
        s.Etat = "Calvados";
        s.CP = "14000";
        s.Pays = "France";
        s.Telephone = "0231000000";
        s.EMail = "alice@exemple.fr";
    }
    b.Notes[-1].Texte = "Fichier d'essai\r\nseconde ligne";

    Perso& jean = Personne(b, 1, "Jean", "Dupont", 'M');
    Dater(jean.Naissance, "12/03/1750", 1750);
    jean.Naissance.Lieu = "Rouen";
    jean.Naissance.Notes = "ligne un\r\nligne deux\r\nligne trois";
    jean.Naissance.Source = "@S1@";
    Temoin(jean.Naissance, 1, 3, "parrain");
    Temoin(jean.Naissance, 2, 4, "marraine");  // fiche effacée
    Temoin(jean.Naissance, 3, 8, "voisin");    // hors sélection
    Dater(jean.Bapteme, "vers 1750", 1750);
    jean.Bapteme.Lieu = "Rouen";
    Dater(jean.Deces, "avant 12/03/1800", 1800);
    jean.Deces.Source = "registre";
    jean.Sepulture.Lieu = "Bl\xE9ville";
    {
        PersoSuite& s = jean.SuiteModif();
        s.Adresse1 = "3 rue Haute";
        s.Adresse2 = "B\xE2timent B";
        s.Ville = "Rouen";
        s.Etat = "Normandie";
        s.CP = "76000";
        s.Pays = "France";
        s.Telephone = "0235000000";
        s.EMail = "jean@exemple.fr";
        s.URL = "https://exemple.fr/jean";
        s.Ref = "1";
        s.Fichiers.Fixer(1, Texte("/donnees/arbre/photos/jean.jpg"));
        s.Fichiers.Fixer(2, Texte("/ailleurs/v1.2/acte.Pdf"));
        s.Fichiers.Fixer(4, Texte("/apres/un/trou.png"));
        s.ObjetsMedia.Fixer(1, 1);
        s.ObjetsMedia.Fixer(2, 2);
    }
    jean.Interet = 3;
    jean.Unions[1] = 1;
    jean.Unions[2] = 5;  // famille hors sélection
    jean.NumParents = 2;
    jean.Notes = "Note de Jean\r\nsuite";
    jean.Metier = "laboureur, tisserand";
    jean.DateModif = NumeroJour({1, 2, 2023}) + 0.75;

    Perso& marie = Personne(b, 2, "Marie", "Martin", 'F');
    Dater(marie.Naissance, "1755", 1755);
    Dater(marie.Deces, "03/1790", 1790);
    marie.Unions[1] = 1;

    Personne(b, 3, "Ren\xE9", "L\xE9vy", ' ').Naissance.Lieu = "Paris";
    // 4 : fiche effacée, un trou dans les numéros.
    Perso& paul = Personne(b, 5, "Paul", "Dupont", 'M');
    Dater(paul.Naissance, "apr\xE8s 1775", 1775);
    Dater(paul.Deces, "entre 1800 et 1810", 1810);
    Dater(paul.Sepulture, "de 1810 \xE0 1811", 1811);
    paul.NumParents = 1;
    Personne(b, 6, "Luc", "Dupont", 'M', kFaux).NumParents = 1;
    Personne(b, 7, "Pierre", "Dupont", 'M', kFaux).Unions[1] = 2;
    Personne(b, 8, "Anne", "Leroy", 'F', kFaux).Unions[1] = 2;
    Personne(b, 9, "Zo\xE9", "Seule", 'F').NumParents = 3;
    Personne(b, 10, "Abel", "Fr\xE8re", 'M').NumParents = 4;
    Personne(b, 11, "Ca\xEFn", "Fr\xE8re", 'M').NumParents = 4;
    Perso& dernier = Personne(b, 12, "Dernier", "Num\xE9ro", 'U');
    Dater(dernier.Naissance, "00/03/1760", 1760);
    Dater(dernier.Bapteme, "00/00/1760", 1760);
    dernier.SuiteModif().ObjetsMedia.Fixer(1, 2);

    Fami& f1 = b.Familles[1];
    f1.Mari = 1;
    f1.Femme = 2;
    f1.Sel = kVrai;
    Dater(f1.Mariage, "entre 1770 et 1772", 1772);
    f1.Mariage.Lieu = "Rouen";
    Temoin(f1.Mariage, 1, 3, "t\xE9moin");
    Dater(f1.Contrat, "03/1770", 1770);
    f1.Contrat.Notes = "chez Ma\xEEtre Roy";
    f1.Divorce.Source = "@S1@";
    f1.Enfants.Fixer(1, 5);
    f1.Enfants.Fixer(2, 6);
    f1.DateModif = NumeroJour({2, 2, 2023});
    Fami& f2 = b.Familles[2];  // hors sélection : Jean garde ses parents en toutes lettres
    f2.Mari = 7;
    f2.Femme = 8;
    f2.Enfants.Fixer(1, 1);
    Fami& f3 = b.Familles[3];  // sélectionnée, sans conjoint nommé, un enfant : pas écrite
    f3.Sel = kVrai;
    f3.Enfants.Fixer(1, 9);
    Fami& f4 = b.Familles[4];  // sans conjoint mais deux enfants : écrite
    f4.Sel = kVrai;
    f4.Enfants.Fixer(1, 10);
    f4.Enfants.Fixer(2, 11);
    b.Familles[5].Mari = 1;
    b.NbFamis = b.NbFamisReels = 5;

    Note(b.Notes[1], "Titre", "Texte un\r\nTexte deux", kVrai);
    Note(b.Notes[2], "", "cach\xE9", kFaux);
    b.NbNotes = 2;
    Note(b.Sources[1], "Registres", "AD76", kVrai);
    b.NbSources = 1;

    ObjetMedia& m1 = b.Medias[1];
    m1.Actif = -1;
    m1.Fichiers.Fixer(1, Texte("/donnees/arbre/portraits/jean.png"));
    m1.Titres.Fixer(1, Texte("Portrait"));
    m1.Fichiers.Fixer(2, Texte("/donnees/arbre/sans_extension"));
    m1.LiensPersos.Fixer(1, 1);
    m1.LiensFamis.Fixer(1, 1);
    m1.NumNote = 1;
    m1.NumSource = 1;
    ObjetMedia& m2 = b.Medias[2];  // écrit sous les personnes, pas en fiche
    m2.Actif = -1;
    m2.Local = -1;
    m2.Fichiers.Fixer(1, Texte("/donnees/arbre/scan.tiff"));
    b.Medias[3].Fichiers.Fixer(1, Texte("inactif.jpg"));  // Actif 0 : jamais écrit
    b.NbMedias = 3;
    return b;
}

std::string Ecrire(const Base& b, const OptionsGedcom& cases) {
    ContexteEcriture ctx{cases, kEntete, "05/04/2024"};
    return EcrireGedcomTexte(b, ctx);
}

OptionsGedcom Cases() {
    OptionsGedcom c;
    c.Fichier = "/donnees/arbre/famille.ged";
    return c;
}

TEST(Ecrivain, BaseRicheOctetPourOctet) {
    EXPECT_TRUE(CommeReference(kReferences / "riche.ged", Ecrire(BaseRiche(), Cases())));
}

TEST(Ecrivain, CasesDecocheesEtAges) {
    OptionsGedcom c = Cases();
    c.Dates = c.Lieux = c.Fichiers = c.Adresses = c.Sources = c.Notes = false;
    c.Ages = true;
    EXPECT_TRUE(CommeReference(kReferences / "riche-sans-cases.ged", Ecrire(BaseRiche(), c)));
}

TEST(Ecrivain, ProfessionsTemoinsEtNettoyageNAgissentQuALaLecture) {
    const Base b = BaseRiche();
    OptionsGedcom c = Cases();
    const std::string attendu = Ecrire(b, c);
    c.Professions = c.Temoins = false;
    c.OptNettoie = c.OptRenum = true;
    EXPECT_TRUE(MemesOctets(attendu, Ecrire(b, c)));
}

TEST(Ecrivain, BaseVideNiGenealogisteNiNoteDuFichier) {
    Base b;
    OptionsGedcom c = Cases();
    EXPECT_TRUE(MemesOctets(kEntete + "1 DATE 05 APR 2024\r\n0 TRLR\r\n", Ecrire(b, c)));
    c.Dates = false;
    EXPECT_TRUE(MemesOctets(kEntete + "1 DATE 2024\r\n0 TRLR\r\n", Ecrire(b, c)));
}

TEST(Ecrivain, GenealogisteSansPrenomsNiVille) {
    Base b;
    b.Persos[-1].Nom = "Durand Alice";
    b.Persos[-1].SuiteModif().Adresse2 = "2e \xE9tage";
    EXPECT_TRUE(MemesOctets(kEntete +
                                "1 DATE 05 APR 2024\r\n1 SUBM @SUB1@\r\n0 @SUB1@ SUBM\r\n1 NAME /Durand Alice/\r\n"
                                "1 ADDR \r\n2 CONT 2e \xE9tage\r\n0 TRLR\r\n",
                            Ecrire(b, Cases())));
}

TEST(Ecrivain, EnfantDeAvecUnSeulParentConnu) {
    Base b;
    Personne(b, 1, "Jean", "Dupont", 'M').NumParents = 1;
    Personne(b, 2, "Pierre", "Dupont", 'M', kFaux);
    Personne(b, 3, "Anne", "Leroy", 'F', kFaux);
    b.Familles[1].Mari = 2;
    b.NbFamis = 1;
    const auto notes = [&] {
        const std::string f = Ecrire(b, Cases());
        const auto debut = f.find("1 NOTE");
        return debut == std::string::npos ? std::string() : f.substr(debut, f.find("\r\n", debut) + 2 - debut);
    };
    // Le blanc final reste : il est dans la règle, pas dans les données.
    EXPECT_EQ(notes(), "1 NOTE enfant de Dupont Pierre \r\n");
    b.Familles[1].Mari = 0;
    b.Familles[1].Femme = 3;
    EXPECT_EQ(notes(), "1 NOTE enfant de  Leroy Anne\r\n");
}

// Un évènement seul, écrit comme au milieu d'une personne.
struct Evenement {
    Base base = BaseRiche();
    OptionsGedcom cases = Cases();
    std::string Ecrire(const Acte& a, std::string_view balise, std::int32_t n, std::int32_t courant) {
        ContexteEcriture ctx{cases, kEntete, "05/04/2024"};
        EcrivainGedcom e(base, ctx, nullptr);
        e.FixerCourant(courant);
        e.EcrireActe(a, balise, n);
        return e.Tampon();
    }
};

TEST(Ecrivain, AgeSeulementEntreZeroEtCentQuatreVingtDixNeufAns) {
    Evenement ev;
    ev.cases.Ages = true;
    Acte deces;
    deces.Date = "1949";
    for (const auto& [annee, attendu] : std::vector<std::pair<std::int16_t, std::string>>{
             {1949, "2 AGE 199\r\n"}, {1950, ""}, {1750, "2 AGE 0\r\n"}, {1749, ""}}) {
        deces.Annee = annee;
        const std::string s = ev.Ecrire(deces, "DEAT", 1, 0);
        const auto p = s.find("2 AGE");
        EXPECT_EQ(p == std::string::npos ? "" : s.substr(p), attendu) << annee;
    }
    // La naissance inconnue (Annee 0) ne donne pas d'âge, même à la date 0.
    deces.Annee = 0;
    ev.base.Persos[1].Naissance.Annee = 0;
    EXPECT_EQ(ev.Ecrire(deces, "DEAT", 1, 0), "1 DEAT\r\n2 DATE 1949\r\n");
}

TEST(Ecrivain, ObjetsDeLaPersonneEnCoursDerriereChaqueEvenementSaufLaDerniere) {
    Evenement ev;
    Acte a;
    a.Lieu = "Rouen";
    const std::string objets = "1 OBJE\r\n2 FILE portraits/jean.png\r\n3 FORM PNG\r\n"
                               "1 OBJE\r\n2 FILE scan.tiff\r\n3 FORM TIFF\r\n";
    EXPECT_EQ(ev.Ecrire(a, "BIRT", 0, 1), "1 BIRT\r\n2 PLAC Rouen\r\n" + objets);
    // Personne 12 = NbPersos : rien ; après la boucle des personnes non plus.
    EXPECT_EQ(ev.Ecrire(a, "BIRT", 0, 12), "1 BIRT\r\n2 PLAC Rouen\r\n");
    EXPECT_EQ(ev.Ecrire(a, "MARR", 0, 13), "1 MARR\r\n2 PLAC Rouen\r\n");
    ev.cases.Fichiers = false;
    EXPECT_EQ(ev.Ecrire(a, "BIRT", 0, 1), "1 BIRT\r\n2 PLAC Rouen\r\n");
    // La boucle s'arrête au premier emplacement vide.
    ev.cases.Fichiers = true;
    ev.base.Persos[1].SuiteModif().ObjetsMedia.Fixer(1, 0);
    EXPECT_EQ(ev.Ecrire(a, "BIRT", 0, 1), "1 BIRT\r\n2 PLAC Rouen\r\n");
}

TEST(Ecrivain, CheminsHorsDuDossierOuDossierVide) {
    Base b;
    Perso& p = Personne(b, 1, "Jean", "Dupont", 'M');
    p.SuiteModif().Fichiers.Fixer(1, Texte("/donnees/arbre/a.jpg"));
    p.SuiteModif().Fichiers.Fixer(2, Texte("/donnees/arbre2/b.JPEG"));
    OptionsGedcom c = Cases();
    auto objets = [&] {
        const std::string f = Ecrire(b, c);
        const auto d = f.find("1 OBJE");
        return f.substr(d, f.find("0 TRLR") - d);
    };
    EXPECT_EQ(objets(), "1 OBJE\r\n2 FILE a.jpg\r\n3 FORM JPG\r\n1 OBJE\r\n2 FILE /donnees/arbre2/b.JPEG\r\n3 FORM JPEG\r\n");
    // Un fichier sans dossier (chemin relatif) ne coupe rien.
    c.Fichier = "famille.ged";
    EXPECT_EQ(objets(),
              "1 OBJE\r\n2 FILE /donnees/arbre/a.jpg\r\n3 FORM JPG\r\n1 OBJE\r\n2 FILE /donnees/arbre2/b.JPEG\r\n"
              "3 FORM JPEG\r\n");
}

TEST(Ecrivain, FluxParBlocsEgalAuTexte) {
    // Plus d'un bloc d'un Mo : le flux doit recevoir exactement le même texte que la chaîne.
    Base b;
    RedimensionnerBase(b, 30000);
    for (std::int32_t n = 1; n <= 30000; ++n) {
        Perso& p = Personne(b, n, "Jean-Baptiste", "Dupont", 'M');
        Dater(p.Naissance, "12/03/1750", 1750);
        p.Naissance.Lieu = "Saint-\xC9tienne-du-Rouvray";
    }
    const OptionsGedcom c = Cases();
    const ContexteEcriture ctx{c, kEntete, "05/04/2024"};
    std::ostringstream flux;
    ASSERT_TRUE(EcrireGedcom(b, ctx, flux));
    const std::string texte = EcrireGedcomTexte(b, ctx);
    EXPECT_GT(texte.size(), 2u << 20);
    EXPECT_TRUE(MemesOctets(texte, flux.str()));
}

TEST(Ecrivain, FluxEnPanneSignale) {
    Base b;
    Personne(b, 1, "Jean", "Dupont", 'M');
    std::ostringstream flux;
    flux.setstate(std::ios::badbit);
    const OptionsGedcom c = Cases();
    EXPECT_FALSE(EcrireGedcom(b, ContexteEcriture{c, kEntete, "05/04/2024"}, flux));
}

TEST(Ecrivain, EnteteDuProgramme) {
    const std::string& e = EnteteArbolix();
    EXPECT_TRUE(e.starts_with("0 HEAD\r\n1 SOUR Arbolix\r\n2 VERS " ARBOLIX_VERSION "\r\n2 CORP "));
    EXPECT_TRUE(e.ends_with("1 GEDC\r\n2 VERS 5.5\r\n2 FORM LINEAGE-LINKED\r\n1 CHAR ANSI\r\n1 LANG French\r\n"
                            "1 DEST ANSTFILE\r\n"));
}

}  // namespace
}  // namespace arbolix
