#include "gedcom/lecteur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <vector>

#include "gedcom/lecteur_gedcom.h"
#include "platform/cp1252.h"
#include "platform/en_meme_temps.h"
#include "platform/memoire.h"
#include "platform/progression.h"
#include "store/chaines.h"
#include "store/pages_d_avance.h"

namespace arbolix {

namespace {

// Le nom de fichier est coupé au premier "#" seulement si ce qui précède existe :
// sous Linux un chemin peut contenir "#".
std::string NomDeFichier(const std::string& texte) {
    const auto diese = texte.find('#');
    if (diese == std::string::npos) return texte;
    std::error_code ec;
    const std::string avant = texte.substr(0, diese);
    return std::filesystem::is_regular_file(avant, ec) ? avant : texte;
}

// Les chemins sont en UTF-8 comme le système ; les messages en 1252 comme tout le texte.
bool LireFichierEntier(const std::string& chemin, std::string& contenu, std::string& erreur) {
    const std::string nom = Utf8VersCp1252(chemin);
    std::error_code ec;
    if (!std::filesystem::exists(chemin, ec)) {
        erreur = "Le fichier " + nom + " est introuvable.";
        return false;
    }
    if (!std::filesystem::is_regular_file(chemin, ec)) {
        erreur = "Impossible de lire " + nom + " : ce n'est pas un fichier.";
        return false;
    }
    if (!std::ifstream(chemin, std::ios::binary)) {
        erreur = "Impossible d'ouvrir le fichier " + nom + " (droits insuffisants ?).";
        return false;
    }
    // D'un seul bloc, avec la place de la fin de ligne que le lecteur ajoute et de ce que les
    // réparations globales insèrent : sans elle, chacune réallouait et recopiait tout le tampon.
    // Cette réserve n'est que virtuelle tant que rien n'y est écrit.
    const auto taille = std::filesystem::file_size(chemin, ec);
    if (ec) {
        erreur = "Erreur de lecture du fichier " + nom + ".";
        return false;
    }
    contenu.reserve(static_cast<std::size_t>(taille) + static_cast<std::size_t>(taille) / 32 + 2);
    if (!LireOctets(chemin, static_cast<std::size_t>(taille), contenu)) {
        erreur = "Erreur de lecture du fichier " + nom + ".";
        return false;
    }
    return true;
}

// Le début du fichier suffit à le reconnaître ; un nombre pair d'octets pour l'UTF-16.
constexpr std::size_t kDebutExamine = 4096;
// "0 HEAD" doit venir parmi ces premières lignes non vides.
constexpr int kLignesEntete = 10;

bool EstControle(unsigned char c) {
    return c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != 0x1A && c != 0x1B;
}

bool EstBlanc(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

// Une ligne d'en-tête telle que le lecteur la reconnaît : "0 HEAD" au début ou à la fin.
bool AEntete(std::string_view texte) {
    int vues = 0;
    for (std::size_t debut = 0; debut < texte.size() && vues < kLignesEntete;) {
        std::size_t fin = texte.find_first_of("\r\n", debut);
        if (fin == std::string_view::npos) fin = texte.size();
        const std::string_view ligne = SansBlancs(texte.substr(debut, fin - debut));
        debut = fin + 1;
        if (ligne.empty()) continue;
        ++vues;
        if (ligne.starts_with("0 HEAD") || ligne.ends_with("0 HEAD")) return true;
    }
    return false;
}

std::string MessageNature(NatureFichier n, const std::string& chemin) {
    const std::string nom = Utf8VersCp1252(chemin);
    switch (n) {
        case NatureFichier::Vide:
            return "Le fichier " + nom + " est vide : il n'y a rien \xE0 ouvrir.";
        case NatureFichier::Binaire:
            return "Le fichier " + nom +
                   " n'est pas un fichier GEDCOM : il contient des donn\xE9"
                   "es binaires, ce n'est pas un texte.";
        case NatureFichier::SansEntete:
            return "Le fichier " + nom +
                   " n'est pas un fichier GEDCOM : ses premi\xE8res lignes n'ont pas l'en-t\xEAte \xAB 0 "
                   "HEAD \xBB.";
        case NatureFichier::Gedcom:
            break;
    }
    return {};
}

}  // namespace

NatureFichier ExaminerFichier(std::string_view octets) {
    const bool entier = octets.size() <= kDebutExamine;
    std::string debut(octets.substr(0, kDebutExamine));
    NormaliserCodage(debut);
    if (entier && std::all_of(debut.begin(), debut.end(), EstBlanc)) return NatureFichier::Vide;
    const auto controles = std::count_if(debut.begin(), debut.end(),
                                         [](char c) { return EstControle(static_cast<unsigned char>(c)); });
    // Un texte n'a pas d'octet nul ; quelques caractères de contrôle égarés restent admis.
    if (debut.find('\0') != std::string::npos || static_cast<std::size_t>(controles) * 100 > debut.size())
        return NatureFichier::Binaire;
    return AEntete(debut) ? NatureFichier::Gedcom : NatureFichier::SansEntete;
}

// --- Tampon : fins de ligne et réparations globales ---

namespace {

// Un LF qui ne suit pas un CR, entre debut (au moins 1) et fin ? Une boucle sans branche que le
// compilateur vectorise : le cas courant d'un fichier tout en CR LF se vérifie sans un appel par ligne.
bool LfSeulEntre(std::string_view t, std::size_t debut, std::size_t fin) {
    std::size_t seuls = 0;
    for (std::size_t i = debut; i < fin; ++i) seuls += (t[i] == '\n') & (t[i - 1] != '\r');
    return seuls > 0;
}

bool LfSeul(std::string_view t) {
    if (t.empty()) return false;
    return t[0] == '\n' ||
           DansUneMoitie(1, t.size(), [&](std::size_t de, std::size_t a) { return LfSeulEntre(t, de, a); });
}

}  // namespace

void NormaliserFinsDeLigne(std::string& tampon) {
    // La fin de la ligne d'en-tête dit la convention du fichier. On garde la
    // lecture des règles (CR, LF, CR LF) et on y ajoute ce que les fichiers
    // réels montrent : des fins mêlées et des LF CR inversés, qui sinon
    // colleraient des lignes entières les unes aux autres.
    const auto un = tampon.find('1');
    const std::string_view debut = std::string_view(tampon).substr(0, un);
    const auto head = debut.find("HEAD");
    std::string_view fin = head == std::string_view::npos ? debut : debut.substr(head + 4);
    while (!fin.empty() && fin.front() == ' ') fin.remove_prefix(1);
    if (fin.substr(0, 2) == "\n\r") {
        RemplacerTout(tampon, "\n\r", "\r\n");
        return;
    }
    const bool crSeul = fin.substr(0, 1) == "\r" && fin.substr(0, 2) != "\r\n";
    // Rien à faire dans le cas courant d'un fichier tout en CR LF : on le vérifie
    // sans recopier un tampon de centaines de mégaoctets.
    const auto seule = [&](std::size_t i) {
        return tampon[i] == '\n' ? i == 0 || tampon[i - 1] != '\r'
                                 : crSeul && (i + 1 >= tampon.size() || tampon[i + 1] != '\n');
    };
    // Prochain saut de ligne à examiner : memchr sur '\n', sauf fichier à CR seuls.
    const auto suivant = [&](std::size_t depuis) {
        return crSeul ? tampon.find_first_of("\r\n", depuis) : tampon.find('\n', depuis);
    };
    if (!crSeul && !LfSeul(tampon)) return;
    std::size_t i = suivant(0);
    while (i != std::string::npos && !seule(i)) i = suivant(i + 1);
    if (i == std::string::npos) return;
    std::string r;
    r.reserve(tampon.size() + tampon.size() / 16);
    std::size_t copie = 0;
    for (; i != std::string::npos; i = suivant(i + 1)) {
        if (!seule(i)) continue;
        r.append(tampon, copie, i - copie);
        r += "\r\n";
        copie = i + 1;
    }
    r.append(tampon, copie, std::string::npos);
    tampon.swap(r);
}

namespace {

// Les trois réparations de pointeurs tiennent à un « @ ». Un fichier en a des millions : un
// seul parcours relève les places de chacune, au lieu d'un par réparation. Celles des « @ » entre
// de et a s'ajoutent à places.
using PlacesArobase = std::array<std::vector<std::size_t>, 3>;
using MotifsDesArobases = std::array<std::string_view, 3>;
PlacesArobase MotifsArobaseEntre(std::string_view t, const MotifsDesArobases& motifs, std::size_t de,
                                 std::size_t a, PlacesArobase places = {}) {
    // La place de l'arobase dans chaque motif, et l'octet qui la suit : il écarte d'un coup
    // presque tous les « @ » d'un fichier, sans comparer le motif entier.
    std::array<std::size_t, 3> avant{};
    std::array<char, 3> suivant{};
    for (std::size_t k = 0; k < motifs.size(); ++k) {
        avant[k] = motifs[k].find('@');
        suivant[k] = motifs[k][avant[k] + 1];
    }
    const char* const debut = t.data();
    const char* const fin = debut + a;
    for (const char* q = debut + de;
         (q = static_cast<const char*>(std::memchr(q, '@', static_cast<std::size_t>(fin - q)))); ++q) {
        const auto ici = static_cast<std::size_t>(q - debut);
        for (std::size_t k = 0; k < motifs.size(); ++k) {
            if (ici + 1 >= t.size() || t[ici + 1] != suivant[k] || ici < avant[k]) continue;
            auto& v = places[k];
            // Comme un remplacement : une occurrence ne chevauche pas la précédente.
            if (!v.empty() && ici - avant[k] < v.back() + motifs[k].size()) continue;
            if (t.substr(ici - avant[k]).starts_with(motifs[k])) v.push_back(ici - avant[k]);
        }
    }
    return places;
}

// Les deux moitiés d'un grand tampon sur deux cœurs. Une place de la seconde qui chevauche la
// dernière de la première n'en serait pas une : la seconde se reprend alors à la suite de la première.
PlacesArobase MotifsArobase(std::string_view t, const MotifsDesArobases& motifs) {
    if (t.size() < kSeuilDeuxMoities) return MotifsArobaseEntre(t, motifs, 0, t.size());
    auto [places, suite] = EnDeuxMoities(
        0, t.size(), [&](std::size_t de, std::size_t a) { return MotifsArobaseEntre(t, motifs, de, a); });
    for (std::size_t k = 0; k < motifs.size(); ++k)
        if (!places[k].empty() && !suite[k].empty() && suite[k].front() < places[k].back() + motifs[k].size())
            return MotifsArobaseEntre(t, motifs, Milieu(0, t.size()), t.size(), std::move(places));
    for (std::size_t k = 0; k < motifs.size(); ++k)
        places[k].insert(places[k].end(), suite[k].begin(), suite[k].end());
    return places;
}

}  // namespace

void ReparationsGlobales(std::string& tampon, Progression* progression) {
    static constexpr std::pair<std::string_view, std::string_view> kReparations[] = {
        {" @INDI", " @"},
        {" @SOUR", " @S"},
        {"@ NOTE ", "@ NOTE\r\n1 TEXT "},
        {"1 TITL ", "1 TITL\r\n2 TYPE "},
        {"2 DATE CA.", "2 DATE ABT "},
        {"\r\n1 NOTE \\\r\n", "\r\n"},
        {"\t", ""},
    };
    const auto places =
        MotifsArobase(tampon, {kReparations[0].first, kReparations[1].first, kReparations[2].first});
    // Les places relevées valent tant que rien n'a bougé ; après un remplacement, on cherche.
    bool remplace = false;
    for (std::size_t k = 0; k < std::size(kReparations); ++k) {
        const auto& [de, vers] = kReparations[k];
        const std::size_t n = k < places.size() && !remplace ? RemplacerAux(tampon, places[k], de, vers)
                                                             : RemplacerTout(tampon, de, vers);
        remplace = remplace || n > 0;
        if (progression) progression->LaisserPasser();
    }
    if (Contient(tampon, "\\rtf")) {
        // Des notes RTF : on les désarme en bloc.
        for (char& c : tampon) {
            if (c == '\\')
                c = '/';
            else if (c == '{')
                c = '[';
            else if (c == '}')
                c = ']';
        }
    }
}

// --- Lecteur ---

LecteurGedcom::LecteurGedcom(Base& base, ContexteLecture& contexte, ResultatLecture& resultat)
    : base_(base), contexte_(contexte), resultat_(resultat), cases_(contexte.gedcom) {}

void LecteurGedcom::PreparerTampon(std::string contenu) {
    tampon_ = std::move(contenu);
    NormaliserFinsDeLigne(tampon_);
    contexte_.progression.LaisserPasser();
    tampon_ += "\r\n";
    ReparationsGlobales(tampon_, &contexte_.progression);
}

void LecteurGedcom::LigneSuivante() {
    std::size_t fin = FinDeLigne(pos_);
    if (fin == pos_) {  // une ligne vide est sautée, une seule
        pos_ += 2;
        fin = FinDeLigne(pos_);
    }
    if (fin == std::string::npos) {
        aucuneLigne_ = true;
        if (pos_ > tampon_.size()) pos_ = tampon_.size();
        return;
    }
    aucuneLigne_ = false;
    const std::string_view ligne(tampon_.data() + pos_, fin - pos_);
    Lus += static_cast<std::int64_t>(ligne.size()) + 2;
    pos_ = fin + 2;
    LigneCourante = SansBlancs(ligne);
    if ((++NumLigne & 0xFFF) == 0) {
        PompeSiDue();
        RendreLu();
    }
    // Balises d'utilisateur : 1 _OCCU x se lit comme OCCU. La ligne retouchée est une copie : le
    // tampon ne change plus pendant la lecture, un autre fil le parcourt.
    if (LigneCourante.size() >= 3 && LigneCourante[2] == '_' &&
        LigneCourante.find(" FILE ") == std::string_view::npos) {
        std::string& copie = CopieDeContexte(LigneCourante);
        copie.assign(LigneCourante);
        copie[copie.find('_')] = ' ';
        LigneCourante = copie;
    }
    if (std::string_view* contexte = ContexteDe(LigneCourante)) *contexte = LigneCourante;
}

std::string_view* LecteurGedcom::ContexteDe(std::string_view ligne) {
    if (ligne.empty()) return nullptr;
    switch (ligne[0]) {
        case '0':
            return &Ligne0;
        case '1':
            return &Ligne1;
        case '2':
            return &Ligne2;
        default:  // un en-tête précédé d'octets parasites
            return Droite(ligne, 6) == "0 HEAD" ? &Ligne0 : nullptr;
    }
}

std::string& LecteurGedcom::CopieDeContexte(std::string_view ligne) {
    const std::string_view* contexte = ContexteDe(ligne);
    if (contexte == &Ligne0) return contextesRetouches_[0];
    if (contexte == &Ligne1) return contextesRetouches_[1];
    if (contexte == &Ligne2) return contextesRetouches_[2];
    return retouchee_;
}

int LecteurGedcom::Niveau() const {
    return !LigneCourante.empty() && EstChiffre(LigneCourante[0]) ? LigneCourante[0] - '0' : 0;
}

void LecteurGedcom::Decouper() {
    // "1 @N59@ CONT texte" : un identifiant n'a de sens que sur une ligne 0. Il est ôté pour
    // que la sous-ligne et son texte soient lus ; le texte serait sinon perdu.
    if (LigneCourante.size() > 3 && LigneCourante[0] != '0' && LigneCourante[2] == '@') {
        const std::size_t fin = LigneCourante.find("@ ", 3);
        if (fin != std::string_view::npos) {
            JournaliserLigne({"Info ligne ", std::to_string(NumLigne), " : identifiant ",
                              LigneCourante.substr(2, fin - 1), " ignor\xE9 devant une sous-ligne."});
            LigneCourante =
                Retoucher(std::string(LigneCourante.substr(0, 2)).append(LigneCourante.substr(2 + fin)));
        }
    }
    // La balise va jusqu'au premier blanc à partir du quatrième caractère, la ligne étant
    // prolongée de quatre blancs (une balise de moins de trois lettres en garde), sans ses
    // blancs de tête ; la valeur commence deux caractères plus loin.
    const std::string_view ligne = Depuis(LigneCourante, 3);
    const std::size_t blanc = ligne.find(' ', 3);
    const std::string_view balise = ligne.substr(0, blanc);
    const std::size_t tete = balise.find_first_not_of(' ');
    if (tete == std::string_view::npos) {
        Balise = {};
    } else if (blanc == std::string_view::npos && ligne.size() < 3) {
        baliseComplete_.assign(balise.substr(tete)).append(3 - ligne.size(), ' ');
        Balise = baliseComplete_;
    } else {
        Balise = balise.substr(tete);
    }
    LigneCourante.remove_prefix(std::min(LigneCourante.size(), 2 + Balise.size() + 1));
}

std::string_view LecteurGedcom::BaliseDe(std::string_view ligne) {
    const std::string_view reste = Depuis(ligne, 3);
    return reste.substr(0, reste.find(' '));
}

// Premier identifiant sans numéro : on cherche une fois le plus grand numéro utilisable.
void LecteurGedcom::ChercherPlusGrandNumero() {
    const ReleveFichier* releve = releve_.Attendre();
    ProchainTraduit = (releve ? releve->plusGrandNumero : PlusGrandNumero(tampon_)) + 1;
}

std::int32_t LecteurGedcom::NumeroTraduit(std::string_view identifiant) {
    if (ProchainTraduit == 0) ChercherPlusGrandNumero();
    auto [it, nouveau] = Traduits.try_emplace(std::string(identifiant), 0);
    if (nouveau) {
        if (ProchainTraduit > kNumeroMaximal) throw ErreurExecution(6, "D\xE9passement de capacit\xE9");
        it->second = static_cast<std::int32_t>(ProchainTraduit++);
    }
    return it->second;
}

std::int32_t LecteurGedcom::NumeroLu(std::string_view s, bool compterPerso, bool renumeroter, Genre genre) {
    const bool omega = ProduitOmega && !s.empty() && s[0] == 'I';
    std::int64_t n = NumeroBrut(s);
    if (n >= 0 && omega) ++n;  // ce producteur numérote ses personnes depuis 0
    if (n <= 0) n = NumeroTraduit(s.substr(0, s.find('@')));
    std::int64_t t = base_.NbPersos + n;
    if (t > kNumeroMaximal) throw ErreurExecution(6, "D\xE9passement de capacit\xE9");
    if (t >= PlafondConv) PlafondConv = (t / 5000 + 1) * 5000;
    if (renumeroter) {
        auto& conv = ConvNumeros[static_cast<std::size_t>(genre)];
        if (n == 0) {
            n = 1;
            while (conv.numeros.count(static_cast<std::int32_t>(n)) && n < base_.MaxFiches && n < PlafondConv)
                ++n;
        }
        auto& c = conv.numeros[static_cast<std::int32_t>(n)];
        if (c == 0) {
            if (compterPerso) ++base_.NbPersosReels;
            // Les personnes se comptent dans la base ; les autres genres, dans leur propre suite.
            c = genre == Genre::Personne ? base_.NbPersosReels : ++conv.dernier;
        }
        n = c;
        if (compterPerso) t = base_.NbPersos + n;
    } else if (compterPerso) {
        // Une personne est comptée la première fois que son numéro paraît.
        const auto k = static_cast<std::size_t>(t);
        if (k >= Comptees.size()) Comptees.resize(std::max(k + 1, Comptees.size() * 2));
        if (!Comptees[k]) {
            Comptees[k] = true;
            ++base_.NbPersosReels;
        }
    }
    if (compterPerso && t > MaxPersos) MaxPersos = static_cast<std::int32_t>(t);
    if (t > base_.Persos.Haut() || t > base_.MaxFiches)
        RedimensionnerBase(base_, static_cast<std::int32_t>((t / 5000 + 1) * 5000));
    return static_cast<std::int32_t>(n);
}

void LecteurGedcom::MontrerProgression() {
    Progression& p = contexte_.progression;
    p.Compteur(std::to_string(base_.NbPersosReels) + " " + contexte_.textes.Personnes + "\r\n" +
               std::to_string(NbFamisLues) + " " + contexte_.textes.Familles);
    const double centieme = static_cast<double>(TailleFichier) / 100.0;
    const auto pourcent = centieme > 0 ? std::lround(static_cast<double>(Lus) / centieme) : 100;
    p.Avancement(std::to_string(pourcent) + " %");
    p.LaisserPasser();
}

void LecteurGedcom::PompeSiDue() {
    const auto maintenant = std::chrono::steady_clock::now();
    if (maintenant < prochainePompe_) return;
    prochainePompe_ = maintenant + std::chrono::milliseconds(100);
    MontrerProgression();
}

void LecteurGedcom::RendreLu() {
    const std::size_t pas = contexte_.pasRendu;
    if (pos_ < rendu_ + pas) return;
    if (rendu_ == 0) {
        if (releve_.EnCours()) return;  // il lit encore tout le tampon : on rendra plus tard
        if (!DepotsParcourus) ParcourirDepots(*this);
        if (ProchainTraduit == 0) ChercherPlusGrandNumero();
    }
    // On rend ce qui est bien derrière la ligne courante, et derrière les lignes de contexte
    // retenues : la ligne 0 d'une longue fiche peut être loin.
    std::size_t jusque = pos_ - pas / 2;
    for (const std::string_view v : {Ligne0, Ligne1, Ligne2}) {
        const auto p = reinterpret_cast<std::uintptr_t>(v.data());
        const auto debut = reinterpret_cast<std::uintptr_t>(tampon_.data());
        if (p >= debut && p < debut + jusque) jusque = p - debut;
    }
    if (jusque <= rendu_) return;
    RendrePages(tampon_.data() + rendu_, jusque - rendu_);
    rendu_ = jusque;
}

void LecteurGedcom::JournaliserErreur(int numero, std::string_view texte) {
    resultat_.Reperes.pieges.push_back(
        {NumLigne, std::string(Balise), std::string(SansBlancs(Depuis(Ligne0, 2)))});
    JournaliserLigne("Erreur ligne " + std::to_string(NumLigne) + " : erreur " + std::to_string(numero) +
                     " : " + std::string(texte) + ". " + std::string(LigneCourante));
}

void LecteurGedcom::JournaliserExceptionCourante() {
    try {
        throw;
    } catch (const ErreurExecution& e) {
        JournaliserErreur(e.numero, e.what());
    } catch (const std::out_of_range&) {
        JournaliserErreur(9, "L'indice n'appartient pas \xE0 la s\xE9lection");
    } catch (const std::bad_alloc&) {
        JournaliserErreur(7, "M\xE9moire insuffisante");
    } catch (const std::exception&) {
        JournaliserErreur(5,
                          "Argument ou appel de proc\xE9"
                          "dure incorrect");
    }
}

bool LecteurGedcom::EntreeDeFiche() {
    if (!LigneCourante.empty() && LigneCourante[0] == '0') return true;
    // Une ligne vide a fermé la section sans nouvelle fiche : on reprend la même.
    LigneSuivante();
    return false;
}

void LecteurGedcom::Avancer(std::string_view alerteFin) {
    LigneSuivante();
    if (FinAtteinte() && !alerteFin.empty()) JournaliserLigne(alerteFin);
}

void LecteurGedcom::Sauter() {
    do {
        LigneSuivante();
    } while (!aucuneLigne_ && (LigneCourante.empty() || LigneCourante[0] != '0'));
}

void LecteurGedcom::NoterFiche(std::int32_t debut, std::string nom) {
    resultat_.Reperes.fiches.push_back({debut, std::max(debut, NumLigne - 1), std::move(nom)});
}

void LecteurGedcom::NoterFicheSansNumero(std::int32_t debut, std::string_view ligne0) {
    const std::string fiche(SansBlancs(Depuis(ligne0, 2)));
    if (Droite(ligne0, 4) == "SUBM")
        NoterFiche(debut, base_.NumCourant == -1 ? "la fiche de l'auteur du fichier (" + fiche + ")"
                                                 : "la fiche d'auteur (" + fiche +
                                                       ") que l'en-t\xEAte ne d\xE9signe pas, non reprise");
    else if (base_.NumCourant == 0)
        NoterFiche(debut, "la fiche " + fiche + ", non reprise faute d'un num\xE9ro utilisable");
}

void LecteurGedcom::BouclePrincipale() {
    for (;;) {
        const std::string_view fin = Droite(Ligne0, 4);
        const std::int32_t debut = NumLigne;
        // L'en-tête lu (il peut encore changer le tampon), le relevé part sur un autre fil.
        if (!releve_.Lance() && fin != "HEAD") releve_.Lancer(tampon_);
        if (fin == "INDI" || fin == "SUBM") {
            const std::string ligne0(Ligne0);  // Ligne0 passe à la fiche suivante
            SectionPersonne();
            NoterFicheSansNumero(debut, ligne0);
        } else if (fin == " FAM")
            SectionFamille();
        else if (fin == "OBJE" && cases_.Fichiers)
            SectionMedia();
        else if (fin == "NOTE" && cases_.Notes)
            SectionNote(false);
        else if (fin == "SOUR" && cases_.Sources)
            SectionNote(true);
        else if (fin == "HEAD") {
            SectionEntete();
            NoterFiche(debut, "l'en-t\xEAte du fichier (HEAD)");
        } else
            Sauter();
        if (Droite(Ligne0, 4) == "TRLR" || Annule()) break;
        if (aucuneLigne_ && pos_ + 2 >= tampon_.size()) break;
    }
}

void LecteurGedcom::Lire(std::string contenu) {
    // Seul le fichier par défaut peut être renuméroté.
    if (cases_.Fichier != contexte_.options.FichierDefaut) contexte_.gedcom.OptRenum = false;
    Renumeroter = cases_.OptRenum;
    contexte_.progression.Compteur(contexte_.textes.Lecture);
    contexte_.progression.LaisserPasser();
    resultat_.Journal.clear();
    CodageLu codage = NormaliserCodage(contenu);
    Codage = codage.codage;
    Journaliser(codage.journal);
    PreparerTampon(std::move(contenu));
    MaxPersos = base_.NbPersos;
    NbFamisLues = base_.NbFamis;
    TailleFichier = static_cast<std::int64_t>(tampon_.size());
    LigneSuivante();
    {
        std::optional<PagesDAvance<Perso>> persos;
        std::optional<PagesDAvance<Fami>> familles;
        if (static_cast<std::size_t>(TailleFichier) >= contexte_.seuilPagesDAvance) {
            persos.emplace(base_.Persos);
            familles.emplace(base_.Familles);
        }
        BouclePrincipale();
    }
    Terminer();
}

void LecteurGedcom::Terminer() {
    ConvNumeros = {};
    releve_.Abandonner();
    tampon_.clear();
    tampon_.shrink_to_fit();
    MontrerProgression();
    Base& b = base_;
    b.NbFamisReels = NbFamisLues;
    b.NbPersos = MaxPersos;
    b.NbFamis = b.NbFamisReels;
    b.NbNotes = std::max(b.NbNotes, DerniereNote);
    b.NbSources = std::max(b.NbSources, DerniereSource);
    if (b.NbPersosReels > 5000) contexte_.options.ListePersosCourte = true;
    b.NbPersos = std::max(b.NbPersos, b.NbPersosReels);
    b.NbFamis = std::max(b.NbFamis, b.NbFamisReels);
    b.NbNotes = std::min(std::max(b.NbNotes, b.NbNotesReelles), b.MaxFiches);
    b.NbSources = std::min(std::max(b.NbSources, b.NbSourcesReelles), b.MaxFiches);
    b.NbMedias = std::min(std::max({b.NbMedias, b.NbMediasReels, DernierMedia}), b.MaxFiches);
    b.NumCourant = b.NbPersos;
    AgrandirBase(b, true, b.Persos.Haut(), &contexte_.progression, contexte_.textes.Agrandissement);
    if (!Annule()) ControlesApresLecture();
    resultat_.PremierePerso = PremierePerso;
    if (Annule()) {
        Vider(b, true);
        resultat_.Annule = true;
        resultat_.PremierePerso = 0;
    } else {
        b.NumCourant = PremierePerso;
    }
    ProduitOmega = false;
}

ResultatLecture LireGedcomTexte(Base& base, ContexteLecture& contexte, std::string contenu) {
    ResultatLecture resultat;
    try {
        LecteurGedcom lecteur(base, contexte, resultat);
        lecteur.Lire(std::move(contenu));
        resultat.Lu = true;
    } catch (const std::bad_alloc&) {
        Vider(base, true);
        resultat.Erreur = "M\xE9moire insuffisante pour lire ce fichier.";
    } catch (const std::exception& e) {
        Vider(base, true);
        resultat.Erreur = std::string("Erreur pendant la lecture : ") + e.what();
    }
    return resultat;
}

ResultatLecture LireGedcom(Base& base, ContexteLecture& contexte) {
    const std::string chemin = NomDeFichier(contexte.gedcom.Fichier);
    std::string contenu;
    ResultatLecture echec;
    if (!LireFichierEntier(chemin, contenu, echec.Erreur)) return echec;
    if (const NatureFichier n = ExaminerFichier(contenu); n != NatureFichier::Gedcom) {
        echec.Erreur = MessageNature(n, chemin);
        return echec;
    }
    return LireGedcomTexte(base, contexte, std::move(contenu));
}

}  // namespace arbolix
