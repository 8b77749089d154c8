#include "ui/editeur.h"

#include <QHBoxLayout>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

namespace {

std::string DepuisControle(const QString& texte) {
    QString t = texte;
    t.replace("\r\n", "\n");
    t.replace("\n", "\r\n");
    return DepuisQString(t);
}

QPushButton* NouveauBouton(const char* nom, const char* texte, QWidget* parent) {
    auto* b = new QPushButton(VersQString(texte), parent);
    b->setObjectName(nom);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

Editeur::Editeur(QWidget* parent)
    : QDialog(parent),
      titre_(new QLineEdit(this)),
      texte_(new QPlainTextEdit(this)),
      numNote_(new QLineEdit(this)),
      labelNS_(new QLabel(this)),
      labelTitre_(new QLabel("Titre", this)),
      ok_(NouveauBouton("BoutonOK", "OK", this)),
      annuler_(NouveauBouton("BoutonAnnuler", "Annuler", this)),
      ouvrir_(NouveauBouton("BoutonOuvrir", "Ouvrir...", this)),
      enreg_(NouveauBouton("BoutonEnreg", "Enregistrer", this)),
      liens_(NouveauBouton("BoutonLiens", "Liens vers", this)),
      milieu_(new QSplitter(this)) {
    setObjectName("Editeur");
    setWindowTitle(
        VersQString("\xC9"
                    "diteur de notes"));
    titre_->setObjectName("Titre");
    texte_->setObjectName("Texte");
    numNote_->setObjectName("NumNote");
    labelNS_->setObjectName("LabelNS");
    labelTitre_->setObjectName("LabelTitre");
    texte_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    numNote_->setMaximumWidth(80);
    // La liste des liens n'est pas encore faite : le bouton reste grisé.
    liens_->setEnabled(false);

    auto* haut = new QHBoxLayout;
    haut->addWidget(labelNS_);
    haut->addWidget(numNote_);
    haut->addWidget(labelTitre_);
    haut->addWidget(titre_, 1);
    auto* bas = new QHBoxLayout;
    for (QPushButton* b : {ouvrir_, enreg_, liens_}) bas->addWidget(b);
    bas->addStretch(1);
    bas->addWidget(ok_);
    bas->addWidget(annuler_);
    auto* disposition = new QVBoxLayout(this);
    disposition->addLayout(haut);
    milieu_->addWidget(texte_);
    disposition->addWidget(milieu_, 1);
    disposition->addLayout(bas);
    resize(760, 480);

    connect(ok_, &QPushButton::clicked, this, &Editeur::BoutonOK);
    connect(annuler_, &QPushButton::clicked, this, &QDialog::reject);
    connect(ouvrir_, &QPushButton::clicked, this, &Editeur::BoutonOuvrir);
    connect(enreg_, &QPushButton::clicked, this, &Editeur::BoutonEnreg);
    connect(numNote_, &QLineEdit::editingFinished, this, &Editeur::NumNoteChange);
}

void Editeur::Cote(QWidget* w) {
    delete cote_;
    cote_ = w;
    if (w) milieu_->addWidget(w);
}

void Editeur::Preparer(Mode mode, Base* base, Dialogue* dialogue) {
    Cote(nullptr);
    std::string().swap(reste_);
    suite_ = 0;
    mode_ = mode;
    base_ = base;
    dialogue_ = dialogue;
    const bool externe = mode == Mode::Externe;
    texte_->setReadOnly(mode == Mode::Journal);
    for (QWidget* w :
         {static_cast<QWidget*>(titre_), static_cast<QWidget*>(labelTitre_), static_cast<QWidget*>(numNote_),
          static_cast<QWidget*>(labelNS_), static_cast<QWidget*>(liens_)})
        w->setVisible(externe);
    ouvrir_->setVisible(mode != Mode::Journal);
    enreg_->setVisible(mode != Mode::Journal);
    annuler_->setVisible(mode != Mode::Journal);
    // Le journal se lit puis se ferme d'Entrée ; ailleurs Entrée reste au texte et au titre.
    ok_->setDefault(mode == Mode::Journal);
    ok_->setAutoDefault(mode == Mode::Journal);
    if (mode != Mode::Journal)
        setWindowTitle(
            VersQString("\xC9"
                        "diteur de notes"));
}

namespace {

// Un morceau d'environ 256 000 octets, coupé après une fin de ligne : une paire CR LF reste entière.
std::size_t FinDeMorceau(std::string_view texte, std::size_t debut) {
    constexpr std::size_t kMorceau = 256 * 1024;
    if (texte.size() - debut <= kMorceau) return texte.size();
    const std::size_t ligne = texte.find('\n', debut + kMorceau);
    return ligne == std::string_view::npos ? texte.size() : ligne + 1;
}

}  // namespace

// Le journal d'un million de personnes tient des centaines de milliers de lignes, que le
// contrôle met des secondes à mettre en page : le premier morceau se montre tout de suite, la
// suite arrive pendant que la fiche répond déjà. Ce qui reste attend en 1252, deux fois moins
// lourd qu'en QString, et chaque morceau se convertit à son tour.
void Editeur::Montrer(const QString& titre, std::string_view texte) {
    MontrerJournal(titre, std::string(texte));
}

void Editeur::MontrerJournal(const QString& titre, std::string texte) {
    Preparer(Mode::Journal, nullptr, nullptr);
    setWindowTitle(titre);
    titre_->clear();
    reste_ = std::move(texte);
    suite_ = FinDeMorceau(reste_, 0);
    texte_->setPlainText(VersQStringLignes(std::string_view(reste_).substr(0, suite_)));
    if (suite_ < reste_.size()) QTimer::singleShot(0, this, &Editeur::RemplirSuite);
    show();
    raise();
}

void Editeur::RemplirSuite() {
    if (suite_ >= reste_.size()) return;  // fini, ou remplacé par un autre texte
    const std::size_t fin = FinDeMorceau(reste_, suite_);
    QTextCursor c(texte_->document());
    c.movePosition(QTextCursor::End);
    c.insertText(VersQStringLignes(std::string_view(reste_).substr(suite_, fin - suite_)));
    suite_ = fin;
    if (suite_ < reste_.size())
        QTimer::singleShot(0, this, &Editeur::RemplirSuite);
    else
        std::string().swap(reste_);  // clear() garderait les dizaines de Mo
}

// Avant de lire ou d'enregistrer le texte : tout ce qui reste, d'un coup.
void Editeur::Completer() {
    while (suite_ < reste_.size()) RemplirSuite();
}

void Editeur::MontrerTexteLibre(const QString& titre, std::string_view texte, Dialogue& dialogue) {
    Montrer(titre, texte);
    dialogue_ = &dialogue;
    numero_ = 0;
    texte_->setReadOnly(false);
    enreg_->setVisible(true);
}

bool Editeur::OuvrirNote(Base& base, std::int32_t numero, int type, bool avecBoutons, Dialogue& dialogue) {
    if (type != 1 && type != 2) {
        dialogue.Message("Note/source externe",
                         "Impossible d'afficher la note/source " + std::to_string(numero) +
                             " car son type n'a pas \xE9t\xE9 d\xE9tect\xE9.",
                         Icone::Attention);
        return false;
    }
    Preparer(Mode::Externe, &base, &dialogue);
    genre_ = type == 2 ? 'S' : 'N';
    labelNS_->setText(genre_ == 'S' ? "@S" : "@N");
    const bool fichier = numero == -1;
    liens_->setVisible(avecBoutons && !fichier);
    ouvrir_->setVisible(!fichier);
    numNote_->setEnabled(!fichier);
    // La note du fichier n'a pas de numéro à montrer (« @N -1 »).
    numNote_->setVisible(!fichier);
    labelNS_->setVisible(!fichier);
    ChargerNote(numero);
    return true;
}

bool Editeur::OuvrirChamp(Base& base, const ChampLien& champ, Dialogue& dialogue) {
    const arbolix::Texte& texte = TexteDuChamp(base, champ);
    const char genre = GenreDuChamp(champ);
    if (const std::int32_t n = NumeroDuLien(texte, genre); n > 0 && n <= NotesDuGenre(base, genre).Haut())
        return OuvrirNote(base, n, genre == 'S' ? 2 : 1, true, dialogue);
    Preparer(Mode::Champ, &base, &dialogue);
    champ_ = champ;
    texte_->setPlainText(VersQStringLignes(texte));
    return true;
}

void Editeur::ChargerNote(std::int32_t numero) {
    numero_ = numero;
    const NoteExt& e = std::as_const(NotesDuGenre(*base_, genre_))[numero];
    numNote_->setText(QString::number(numero));
    titre_->setText(VersQString(e.Titre));
    // Le titre dit ce que l'éditeur montre.
    if (numero == -1)
        setWindowTitle("Notes du fichier");
    else
        setWindowTitle(
            QString("%1 @%2%3@").arg(genre_ == 'S' ? "Source" : "Note").arg(QChar(genre_)).arg(numero));
    texte_->setPlainText(VersQStringLignes(e.Texte));
}

void Editeur::NumNoteChange() {
    if (mode_ != Mode::Externe || numero_ == -1) return;
    const std::int32_t n = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(numNote_->text())));
    const std::int32_t haut = genre_ == 'S' ? base_->NbSources : base_->NbNotes;
    if (n >= 1 && n <= haut && n != numero_)
        ChargerNote(n);
    else
        numNote_->setText(QString::number(numero_));
}

void Editeur::BoutonOK() {
    if (mode_ == Mode::Externe)
        ModifierNote(*base_, genre_, numero_, DepuisQString(titre_->text()),
                     DepuisControle(texte_->toPlainText()));
    else if (mode_ == Mode::Champ)
        ChangerChamp(*base_, champ_, DepuisControle(texte_->toPlainText()), dialogue_);
    if (mode_ != Mode::Journal) base_->FichierModifie = kVrai;
    accept();
}

void Editeur::BoutonOuvrir() {
    const auto chemin =
        dialogue_->ChoisirFichierOuvrir("Lire un fichier texte...", "Fichiers texte (*.txt)", "");
    if (!chemin) return;
    if (const auto contenu = LireFichierTexte(*chemin)) texte_->setPlainText(VersQStringLignes(*contenu));
}

void Editeur::BoutonEnreg() {
    const std::string defaut = "note_" + std::to_string(numero_) + ".txt";
    const auto chemin = dialogue_->ChoisirFichierEnregistrer("Enregistrer un fichier texte...",
                                                             "Fichiers texte (*.txt)", defaut);
    if (!chemin) return;
    Completer();
    EcrireFichierTexte(*chemin, DepuisControle(texte_->toPlainText()));
}

std::optional<std::string> ChoisirLienExterne(Base& base, char genre, const Choisir& choisir,
                                              Editeur& editeur, Dialogue& dialogue) {
    const std::vector<std::string> lignes = LignesChoixNotes(base, genre);
    const bool source = genre == 'S';
    const ListeCandidats liste{source ? "sources" : "notes",
                               source ? "Choisissez une source externe" : "Choisissez une note externe",
                               lignes.front(),
                               {lignes.begin() + 1, lignes.end()}};
    const auto choisie = choisir(liste);
    if (!choisie) return std::nullopt;
    std::int32_t n = NumeroDeLigne(*choisie);
    if (n == 0) {
        n = NouvelleNote(base, genre);
        if (editeur.OuvrirNote(base, n, source ? 2 : 1, true, dialogue)) editeur.exec();
        // Annulée sans rien écrire, la nouvelle fiche n'a pas lieu d'être.
        if (AbandonnerNote(base, genre, n)) return std::nullopt;
    }
    return "@" + std::string(1, genre) + std::to_string(n) + "@";
}

}  // namespace arbolix
