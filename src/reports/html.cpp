#include "reports/html.h"

#include <cctype>
#include <cstdio>

#include "platform/cp1252.h"

namespace arbolix {

std::string EchapperHtml(std::string_view texte) {
    std::string r;
    r.reserve(texte.size());
    for (const char c : texte) {
        switch (c) {
            case '&':
                r += "&amp;";
                break;
            case '<':
                r += "&lt;";
                break;
            case '>':
                r += "&gt;";
                break;
            case '"':
                r += "&quot;";
                break;
            default:
                r += c;
        }
    }
    return r;
}

std::string VersLatin1(std::string_view texte) {
    std::string r;
    r.reserve(texte.size());
    char code[16];
    for (const char c : texte) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x80 && u < 0xA0) {
            // Les cinq trous de 1252 n'ont pas de caractère : rien ne les montre mieux qu'un "?".
            const char32_t p = Cp1252VersUnicode(u);
            if (p < 0xA0) {
                r += '?';
                continue;
            }
            std::snprintf(code, sizeof code, "&#%u;", static_cast<unsigned>(p));
            r += code;
        } else {
            r += c;
        }
    }
    return r;
}

std::string EncoderUrl(std::string_view chemin) {
    std::string r;
    char code[4];
    for (const char c : chemin) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 0x80 && (std::isalnum(u) || c == '/' || c == '.' || c == '_' || c == '~' || c == '-')) {
            r += c;
        } else {
            std::snprintf(code, sizeof code, "%%%02X", u);
            r += code;
        }
    }
    return r;
}

}  // namespace arbolix
