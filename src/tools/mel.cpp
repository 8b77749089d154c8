#include "tools/mel.h"

#include <cerrno>
#include <fstream>
#include <random>
#include <sstream>

#include "gedcom/enregistrement.h"
#include "platform/cp1252.h"

namespace arbolix {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTitreMel = "Envoyer par mail";
constexpr int kChiffresFrontiere = 24;
// Une ligne de courrier en 8 bits ne dépasse pas 998 octets sans sa fin de ligne.
constexpr std::size_t kLigneMax = 998;

// Les octets passent tels quels quand ce sont des lignes CR LF sans octet nul.
bool Passe8Bits(std::string_view t) {
    std::size_t debutLigne = 0;
    for (std::size_t i = 0; i < t.size(); ++i) {
        const char c = t[i];
        if (c == '\0') return false;
        if (c == '\r' && (i + 1 >= t.size() || t[i + 1] != '\n')) return false;
        if (c == '\n') {
            if (i == 0 || t[i - 1] != '\r') return false;
            if (i - 1 - debutLigne > kLigneMax) return false;
            debutLigne = i + 1;
        }
    }
    return t.size() - debutLigne <= kLigneMax;
}

std::string Base64(std::string_view t) {
    static constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string r;
    r.reserve(t.size() / 3 * 4 + t.size() / 57 * 2 + 8);
    for (std::size_t i = 0; i < t.size(); i += 3) {
        const std::size_t n = std::min<std::size_t>(3, t.size() - i);
        std::uint32_t v = 0;
        for (std::size_t k = 0; k < 3; ++k) v = v << 8 | (k < n ? static_cast<unsigned char>(t[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k) r += k <= n ? kAlphabet[(v >> (18 - 6 * k)) & 63] : '=';
        if ((i + 3) % 57 == 0 || i + 3 >= t.size()) r += "\r\n";  // lignes de 76 caractères
    }
    return r;
}

// Paramètre d'en-tête : le nom entre guillemets quand il est en ASCII ; sinon la forme
// encodée des en-têtes MIME (nom*=utf-8''...), que les lecteurs de courrier décodent.
std::string Parametre(std::string_view cle, std::string_view valeur) {
    bool ascii = true;
    for (const char c : valeur)
        if (static_cast<unsigned char>(c) >= 0x80 || static_cast<unsigned char>(c) < 0x20) ascii = false;
    std::string r(cle);
    if (ascii) {
        r += "=\"";
        for (const char c : valeur) {
            if (c == '"' || c == '\\') r += '\\';
            r += c;
        }
        return r + '"';
    }
    static constexpr char kHex[] = "0123456789ABCDEF";
    r += "*=utf-8''";
    for (const char c : valeur) {
        const auto o = static_cast<unsigned char>(c);
        if ((o >= '0' && o <= '9') || (o >= 'A' && o <= 'Z') || (o >= 'a' && o <= 'z') || c == '.' ||
            c == '-' || c == '_')
            r += c;
        else
            r += {'%', kHex[o >> 4], kHex[o & 15]};
    }
    return r;
}

ResultatMel Echec(std::string message) {
    return {false, {}, std::move(message)};
}

}  // namespace

HasardMel HasardSysteme() {
    return [moteur = std::make_shared<std::mt19937>(std::random_device{}())] { return (*moteur)(); };
}

std::string FrontiereMel(const HasardMel& hasard) {
    std::string f = "------------";
    for (int i = 0; i < kChiffresFrontiere; ++i) f += static_cast<char>('0' + hasard() % 10);
    return f;
}

std::string MessageMel(std::string_view nomFichier, std::string_view contenu, std::string_view frontiere) {
    const std::string b(frontiere);
    const bool brut = Passe8Bits(contenu);
    std::string m;
    m.reserve(contenu.size() * (brut ? 1 : 4) / (brut ? 1 : 3) + 1024);
    m += "MIME-Version: 1.0\r\nSubject: Envoi de fichier de genealogie\r\nContent-Type: multipart/mixed;\r\n";
    m += " boundary=\"" + b + "\"\r\n\r\nThis is a multi-part message in MIME format.\r\n";
    m += "--" + b + "\r\nContent-Type: text/plain; charset=ISO-8859-15; format=flowed\r\n";
    m +=
        "Content-Transfer-Encoding: 7bit\r\n\r\nBonjour,\r\nveuillez trouver ci-joint un fichier Gedcom.\r\n";
    m += "cordialement,\r\n";
    m += "--" + b + "\r\nContent-Type: text/plain;\r\n " + Parametre("name", nomFichier) + "\r\n";
    m += brut ? "Content-Transfer-Encoding: 8bit\r\n" : "Content-Transfer-Encoding: base64\r\n";
    m += "Content-Disposition: inline;\r\n " + Parametre("filename", nomFichier) + "\r\n\r\n";
    if (brut) {
        m += contenu;
        // La fin de ligne qui précède une frontière appartient à celle-ci : le dernier CR LF
        // du fichier en demande un second pour rester dans la pièce jointe.
        if (!contenu.empty()) m += "\r\n";
    } else {
        m += Base64(contenu);
    }
    m += "--" + b + "--\r\n";
    return m;
}

fs::path CheminMel(const std::string& fichierGed, const fs::path& dossier) {
    return dossier / (fs::path(fichierGed).filename().string() + ".eml");
}

ResultatMel EcrireMel(const std::string& fichierGed, const std::string& sortie, const HasardMel& hasard) {
    const std::string nom = Utf8VersCp1252(fichierGed);
    std::error_code ec;
    const std::uintmax_t taille = fs::file_size(fichierGed, ec);
    if (ec || !fs::is_regular_file(fichierGed, ec))
        return Echec("Impossible de lire le fichier " + nom + " : " + RaisonEchec(ec ? ec.value() : EISDIR));
    if (taille > kTailleMaxMel)
        return Echec("Le fichier " + nom + " fait " + std::to_string((taille + (1 << 20) - 1) >> 20) +
                     " Mo : trop gros pour un message, les programmes de courrier n'en portent pas plus de " +
                     std::to_string(kTailleMaxMel >> 20) + " Mo.");
    std::ifstream entree(fichierGed, std::ios::binary);
    std::string contenu(static_cast<std::size_t>(taille), '\0');
    if (!entree.read(contenu.data(), static_cast<std::streamsize>(taille)))
        return Echec("Impossible de lire le fichier " + nom + " : " + RaisonEchec(errno));
    const std::string message =
        MessageMel(fs::path(fichierGed).filename().string(), contenu, FrontiereMel(hasard));
    const EtatFichier etat = EcrireFichierSur(sortie, [&](std::ostream& o) {
        o.write(message.data(), static_cast<std::streamsize>(message.size()));
        return static_cast<bool>(o);
    });
    if (!etat.Ok) return Echec(etat.Message);
    return {true, sortie, {}};
}

ResultatMel EnvoyerMel(const std::string& fichierGed, const fs::path& dossierTemp, const HasardMel& hasard,
                       Dialogue& dialogue) {
    ResultatMel r = EcrireMel(fichierGed, CheminMel(fichierGed, dossierTemp).string(), hasard);
    if (!r.Ok) {
        dialogue.Message(kTitreMel, r.Message, Icone::Stop);
        return r;
    }
    if (!dialogue.OuvrirDansProgramme(r.Chemin)) {
        r.Ok = false;
        r.Message = "Aucun programme n'a pu ouvrir le message " + Utf8VersCp1252(r.Chemin) + ".";
        dialogue.Message(kTitreMel, r.Message, Icone::Stop);
    }
    return r;
}

}  // namespace arbolix
