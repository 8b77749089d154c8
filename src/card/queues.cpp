#include "card/queues.h"

#include "store/chaines.h"

namespace arbolix {

void AjouterSixChiffres(std::string& texte, std::int64_t numero) {
    if (numero < 0 || numero > 999999) {
        texte += Zeros(numero, 6);
        return;
    }
    char chiffres[6];
    for (int i = 5; i >= 0; --i, numero /= 10) chiffres[i] = static_cast<char>('0' + numero % 10);
    texte.append(chiffres, 6);
}

void AjouterQueue(std::string& texte, char genre, std::int64_t numero) {
    texte += ' ';
    texte += genre;
    AjouterSixChiffres(texte, numero);
}

std::string Queue(char genre, std::int64_t numero) {
    std::string q;
    AjouterQueue(q, genre, numero);
    return q;
}

LectureQueue LireQueue(std::string_view rangee) {
    if (rangee.size() < 7) return {};
    return {rangee[rangee.size() - 7], static_cast<std::int32_t>(ValeurNumerique(Droite(rangee, 6)))};
}

std::int32_t ConjointDeRangee(std::string_view rangee) {
    if (rangee.size() < 14) return 0;
    return static_cast<std::int32_t>(ValeurNumerique(rangee.substr(rangee.size() - 14, 6)));
}

}  // namespace arbolix
