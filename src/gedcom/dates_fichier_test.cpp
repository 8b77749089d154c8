// Dates d'un fichier lues, écrites, relues : même texte, même clé, même année, même note.
#include <gtest/gtest.h>

#include <string>

#include "gedcom/ecrivain.h"
#include "gedcom/lecture_essai.h"
#include "store/selection.h"

namespace arbolix {
namespace {

std::string Ecrire(essai::Lecture& l) {
    ToutSelectionner(l.base);
    return EcrireGedcomTexte(l.base, ContexteEcriture{l.cases, EnteteArbolix(), "01/01/2000"});
}

TEST(DatesFichier, DoubleAnneeEtJourSansAnneeSurviventALEnregistrement) {
    const char* dates[] = {"12 FEB 1716/17", "ABT 1750/51", "       1733/34",
                           "27 OCT 1699/00", "11 AUG",      "ABT 1 JAN"};
    std::string corps;
    for (int i = 0; i < std::ssize(dates); ++i)
        corps +=
            "0 @I" + std::to_string(i + 1) + "@ INDI|1 NAME Jean /Martin/|1 BIRT|2 DATE " + dates[i] + "|";
    essai::Lecture lu;
    const std::string journal = lu.Lire(corps + "0 TRLR");
    // Une ligne par double année, aucune erreur.
    EXPECT_EQ(journal.find("Erreur"), std::string::npos) << journal;
    EXPECT_NE(
        journal.find("Info ligne 5, personne 1 : la date \xAB 12 FEB 1716/17 \xBB porte une double ann\xE9"
                     "e ; lue en nouveau style : 12/02/1717."),
        std::string::npos)
        << journal;

    const std::string premier = Ecrire(lu);
    essai::Lecture relu;
    relu.LireTout(premier);
    const char* attendues[] = {"12/02/1717", "vers 1751", "1734", "27/10/1700", "11/08", "vers 01/01"};
    for (int n = 1; n <= std::ssize(dates); ++n) {
        SCOPED_TRACE(dates[n - 1]);
        const Acte& a = lu.Pe(n).Naissance;
        const Acte& b = relu.Pe(n).Naissance;
        EXPECT_EQ(a.Date, attendues[n - 1]);
        EXPECT_EQ(b.Date, a.Date);
        EXPECT_EQ(b.DateTri, a.DateTri);
        EXPECT_EQ(b.Annee, a.Annee);
        EXPECT_EQ(b.Notes, a.Notes);  // aucune date républicaine inventée
    }
    EXPECT_NE(premier.find("2 DATE 11 AUG\r\n"), std::string::npos);
    EXPECT_EQ(Ecrire(relu), premier);
}

}  // namespace
}  // namespace arbolix
