// L'ouverture d'un fichier de forme réelle dans la fenêtre (Qt hors écran) : du clic sur OK à la
// fiche affichée puis au journal montré, la plus longue pause de la pompe d'évènements (ce que l'utilisateur
// voit figé), le journal rempli, puis la liste des personnes.
//
// bench_fenetre [FICHIER.ged...]   (par défaut celui d'un million de personnes de gen_gedcom.py, graine 1)
#include <time.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <string>

#include "aides/dialogue_factice.h"
#include "app/travail_en_fond.h"
#include "charger.h"
#include "mesures.h"
#include "platform/progression.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"

using namespace arbolix;

namespace {

// Temps de calcul du seul fil de la fenêtre depuis l'appel précédent : la lecture peut tourner sur
// un autre fil, c'est celui-ci qui fige la fenêtre quand il ne pompe pas.
class ProcesseurDuFil {
public:
    double operator()() {
        const double avant = dernier_;
        dernier_ = Maintenant();
        return dernier_ - avant;
    }

private:
    static double Maintenant() {
        timespec t{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
    }
    double dernier_ = Maintenant();
};

// La progression du dialogue Gedcom, chronométrée : chaque passage par la pompe note le temps de
// calcul depuis le précédent (sur une machine partagée le temps écoulé compte aussi les autres).
class ProgressionChronometree : public Progression {
public:
    ProgressionChronometree(Progression& dialogue, const Fiche& fiche, const QElapsedTimer& ok)
        : dialogue_(dialogue), fiche_(fiche), ok_(ok) {}
    void Compteur(std::string_view t) override {
        dernier_ = t;
        dialogue_.Compteur(t);
    }
    void Avancement(std::string_view t) override {
        dernier_ = t;
        dialogue_.Avancement(t);
    }
    void LaisserPasser() override {
        Noter();
        dialogue_.LaisserPasser();
        // La première pompe après la mise en place du fichier dessine la fiche : le journal peut
        // encore se préparer.
        if (ficheVue_ < 0 && fiche_.FichierOuvert()) ficheVue_ = static_cast<double>(ok_.elapsed()) / 1000.0;
    }
    // Une pause qu'on voit (plus d'un tiers de seconde) est dite avec le dernier texte montré.
    void Noter() {
        const double pause = processeur_();
        if (pause > 0.3) {
            std::replace(dernier_.begin(), dernier_.end(), '\r', ' ');
            std::replace(dernier_.begin(), dernier_.end(), '\n', ' ');
            std::printf("  pause de %.2f s apr\xC3\xA8s \u00AB %s \u00BB\n", pause, dernier_.c_str());
        }
        pauseMax_ = std::max(pauseMax_, pause);
        ++passages_;
    }
    double PauseMax() const { return pauseMax_; }
    double FicheVue() const { return ficheVue_; }
    int Passages() const { return passages_; }

private:
    Progression& dialogue_;
    const Fiche& fiche_;
    const QElapsedTimer& ok_;
    double ficheVue_ = -1;
    ProcesseurDuFil processeur_;
    std::string dernier_;
    double pauseMax_ = 0;
    int passages_ = 0;
};

void Mesurer(const std::string& chemin) {
    Fiche fiche;
    DialogueFactice d;
    fiche.RemplacerDialogue(&d);
    fiche.FormGedcom().RemplacerDialogue(&d);
    fiche.show();
    QApplication::processEvents();
    fiche.gedcom().Fichier = chemin;

    bench::Processeur processeur;
    QElapsedTimer ok;
    ok.start();
    ProgressionChronometree progression(fiche.FormGedcom(), fiche, ok);
    const bool lu = fiche.ChargerFichier(progression);
    progression.Noter();  // de la dernière pompe à la fiche et au journal montrés
    QApplication::processEvents();
    const double fin = static_cast<double>(ok.elapsed()) / 1000.0;
    const double ouverture = progression.FicheVue() < 0 ? fin : progression.FicheVue();
    const double calculOuverture = processeur();

    const double pointeFiche = bench::MemoirePointeMo();

    // Le journal se remplit ensuite par morceaux, la fiche répondant déjà : jusqu'au dernier morceau,
    // la plus longue pompe en temps de calcul du fil de la fenêtre.
    double pompeJournal = 0;
    if (auto* texte = fiche.FormEditeur().findChild<QPlainTextEdit*>()) {
        ProcesseurDuFil fil;
        for (int avant = -1, stable = 0; stable < 3;) {
            QApplication::processEvents();
            pompeJournal = std::max(pompeJournal, fil());
            const int n = texte->document()->characterCount();
            stable = n == avant ? stable + 1 : 0;
            avant = n;
        }
    }
    const double journalRempli = static_cast<double>(ok.elapsed()) / 1000.0;
    processeur();

    // Au-delà de 5 000 personnes la liste demande d'abord un nom : OK garde celui de la fiche.
    QTimer::singleShot(0, [] {
        if (auto* invite = qobject_cast<QDialog*>(QApplication::activeModalWidget())) invite->accept();
    });
    QElapsedTimer liste;
    liste.start();
    fiche.MenuListePersos();
    QApplication::processEvents();
    const double secondesListe = static_cast<double>(liste.elapsed()) / 1000.0;
    const double calculListe = processeur();

    std::printf(
        "%s : %s ; fiche affich\xC3\xA9"
        "e en %.2f s, journal en %.2f s (%.2f s de calcul), pause la plus longue "
        "%.2f s de calcul sur %d passages, pointe %.0f Mo ; journal rempli en %.2f s, pompe la plus longue "
        "%.2f s ; liste des personnes %.2f s (%.2f s de calcul) ; pointe %.0f Mo\n",
        chemin.c_str(), lu ? "lu" : "ERREUR", ouverture, fin, calculOuverture, progression.PauseMax(),
        progression.Passages(), pointeFiche, journalRempli, pompeJournal, secondesListe, calculListe,
        bench::MemoirePointeMo());
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    PreparerTravailEnFond();  // comme la fenêtre
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc < 2) Mesurer(bench::FichierDuBanc(argc, argv));
    for (int i = 1; i < argc; ++i) Mesurer(argv[i]);
    return 0;
}
