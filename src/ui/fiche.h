// La fiche : la fenêtre principale, autour de laquelle tourne chaque commande.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <vector>

#include "app/messages.h"
#include "app/zoom.h"
#include "card/candidats.h"
#include "card/contenu_fiche.h"
#include "card/edition_liens.h"
#include "card/enregistrer_fiche.h"
#include "card/medias.h"
#include "gedcom/lecteur.h"
#include "gedcom/options_gedcom.h"
#include "kinship/menu_sel.h"
#include "lists/listes.h"
#include "store/base.h"
#include "store/options.h"
#include "ui/choix_rangee.h"
#include "ui/dialogue_qt.h"

namespace Ui {
class Fiche;
}

class QKeyEvent;
class QLineEdit;
class QListWidget;
class QMenu;

namespace arbolix {

struct Ascendance;
class Editeur;
struct ValeursWeb;
class Gedcom;
class InputMsgBox;
class FenetreArbre;
class FormListeChoix;
class Personne;
class RechActe;

class Fiche : public QMainWindow {
    Q_OBJECT
public:
    explicit Fiche(QWidget* parent = nullptr);
    ~Fiche() override;

    // Démarrage : le fichier de la ligne de commande (déjà nettoyé) ou rien.
    void Demarrer(const std::string& ligneCommande, const std::string& executable);

    Base& base() { return base_; }
    Options& options() { return options_; }
    OptionsGedcom& gedcom() { return gedcom_; }
    Gedcom& FormGedcom() { return *gedcomForm_; }
    Editeur& FormEditeur() { return *editeur_; }
    Personne& FormPersonne() { return *personne_; }
    Dialogue& dialogue() { return *dialogue_; }
    const ContenuFiche& Contenu() const { return contenu_; }
    // Pour les tests : un autre Dialogue (faux) à la place des boîtes Qt, une autre invite.
    void RemplacerDialogue(Dialogue* d) { dialogue_ = d; }
    void RemplacerInviter(Inviter i) { inviter_ = std::move(i); }
    void RemplacerChoisir(Choisir c) { choisir_ = std::move(c); }
    void RemplacerIni(std::filesystem::path ini) { ini_ = std::move(ini); }

    // Lit le fichier gedcom().Fichier avec ses cases ; rend faux s'il n'a pas pu l'être.
    bool ChargerFichier(Progression& progression);
    bool FichierOuvert() const;

public slots:
    void Vider(bool recharger);
    void MettreEnPlaceFichier(std::int32_t premiere);
    void MenuNouveau();
    void MenuOuvrir();
    bool MenuFermer();
    void MenuEnregistrer();
    void OuvrirEvenement(char genre);
    void MenuNotesFichier();
    void MenuImportFichiers(const std::vector<std::string>& deposes);
    // Enregistre par le dialogue Gedcom ; faux si l'utilisateur annule ou si l'écriture échoue.
    bool Enregistrer();
    void MenuQuitter();
    void MenuConfig();
    void AfficherFiche();
    // Copie la fiche modifiée dans la personne : en la quittant et avant toute commande.
    void EnregistrerFiche();
    void NouvelleFiche();
    void BoutonAjouterParents();
    void BoutonEnleverParents();
    void AjouterUnion();
    void EnleverUnion();
    void AjouterEnfant();
    void EnleverEnfant();
    void MenuListePersos();
    void MenuListeFamis();
    void MenuListeNotes();
    void MenuListeSources();
    void MenuListeFichiers();
    void MenuFichesRecentes();
    // Vérification et réparation de tout le fichier (fiche_verifier.cpp) ; index 0 naissances, 1 mariages.
    void MenuVerifier();
    void MenuCalcActesVides(int index);
    void MenuNettoieLieux();
    void MenuConvNSExtInt();
    // Les pages d'aide dans le navigateur (fiche_aide.cpp) : menu Aide et F1.
    void MenuAide();
    // Menu Édition (fiche_fusion.cpp).
    void MenuDupliquer();
    void MenuSupprimer();
    void MenuFusionner();
    // Les rapports (fiche_exports.cpp) : index de MenuExport.
    void MenuExport(int i);
    // Petits outils (fiche_outils.cpp).
    void MenuEnvoyerMel();
    void MenuStats();         // fiche_stats.cpp
    void MenuFicheFamille();  // fiche_stats.cpp
    void VerifierMiseAJour();
    void VerifierMiseAJourAuDemarrage();
    // La fenêtre de bureau (fiche_fenetre.cpp).
    void MenuEnregistrerSous();
    void MenuAPropos();
    void BoutonAnnuaire();
    void BoutonBaseWeb(const std::string& lieu, const std::string& date, const QString& legende);
    // Les tables d'actes (fiche_tmao.cpp) : index de MenuExportUCGL 0 naissances à 3 ascendance.
    void MenuTMAO2();
    void MenuTXT2TM();
    void MenuExportUCGL(int index);
    // Les arbres (fiche_arbres.cpp).
    void MenuArbre(int genre);
    void MenuArbreVide();
    void RemonterArbre(std::int32_t racine);

protected:
    void closeEvent(QCloseEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    bool eventFilter(QObject* objet, QEvent* e) override;

private:
    void CreerIcones();
    void ChargerTextes(const std::filesystem::path& dossier);
    void RetenirFichier();
    void ActualiserTitre();
    void ActualiserEnregistrer();
    void OuvrirGedcom(ModeGedcom mode);
    void CreerFichierVide();
    std::int32_t PremierePersonne(std::int32_t proposee) const;

    // Fiche : calcul dans le noyau, pose dans les contrôles.
    ContexteFiche Contexte() const;
    void PoserContenu();
    void PoserEnfants();
    void PoserPhoto();
    void BrancherDivers();    // fiche_divers.cpp
    void BrancherVerifier();  // fiche_verifier.cpp
    void BrancherAide();      // fiche_aide.cpp
    void BrancherFusion();    // fiche_fusion.cpp
    void MontrerApresCommande(std::int32_t n);
    void BrancherExports();  // fiche_exports.cpp
    void BrancherOutils();   // fiche_outils.cpp
    void BrancherArbres();   // fiche_arbres.cpp
    FenetreArbre& FormArbre();
    void ReagirArbre(const Reaction& r);
    void ArbreDeParente(std::int32_t ancetre);
    void ArbreDepuisEnfant(std::int32_t enfant);
    void BrancherStats();  // fiche_stats.cpp
    void BrancherTmao();   // fiche_tmao.cpp
    void ConvertirLigneCommande();
    // La liste d'adresses des options : une ligne prise d'emblée, sinon choisie dans la liste "web".
    void RechercherSurLeWeb(const std::string& liste, const QString& legende, const ValeursWeb& valeurs);
    void CreerMenuImage();
    void PoserDivers();
    void ActualiserDivers();
    void MontrerImage(const std::string& fichier);
    LieuxFichiers Lieux() const;
    std::optional<LigneDivers> LigneDiversChoisie();
    bool TraiterOuverture(const LigneDivers& ligne, int mode);
    void BoutonAjouterDivers();
    void BoutonMenuFich();
    void MenuModifLienImage(int index);
    void MenuSupprLienImage();
    void MenuDupliquerImage();
    void MenuDeplacerLienImage(int index);
    bool ToucheNotes(QKeyEvent* k);
    void ColorerSexe();

    // Saisie et liens (fiche_edition.cpp).
    struct ChampFrappe {
        QObject* objet;    // le contrôle qui reçoit la touche
        QLineEdit* ligne;  // sa ligne de texte
        ChampSaisi champ;
    };
    void BrancherSaisie();
    void Modifier();
    bool FiltrerSaisie(QObject* objet, QEvent* e);
    bool ToucheChamp(const ChampFrappe& c, QKeyEvent* k);
    SaisieFiche Saisie() const;
    void RemplirListesSaisie();
    void ActiverBoutonsLiens();
    Edition Editer();
    void ApresLien(std::int32_t allerA);
    std::int32_t PersonneDeLaCommande();
    std::optional<std::int32_t> ChoisirCandidat(const ListeCandidats& liste);
    void MontrerEnfantsDe(std::int32_t f);
    std::int32_t FamilleChoisie() const;
    void AllerA(std::int32_t numero, bool selectionner);
    bool ToucheNumPerso(QKeyEvent* k);
    void CliquerUnion(int rangee);
    void DoubleCliquerUnion(int rangee);
    void DoubleCliquerListeNumero(QListWidget* liste, int rangee);

    // Listes : remplissage par le noyau, fenêtre Personne, réactions à ses clics.
    ContexteListe ContexteDesListes();
    void RemplirListe(bool (*remplir)(const Base&, ContexteListe&, ListePersonne&));
    void ReagirListe(const Reaction& r);
    bool OuvrirFichierLie(const std::string& chemin, bool proprietes);
    void MontrerTexte(const NoteExt& note, std::string_view titre);

    // Sélection active, parenté, recherches (fiche_selection.cpp).
    void BrancherSelection();
    // Les menus d'après lecture, une fois la numérotation Sosa faite sur la base lue.
    void ApresLecture(const Ascendance& a);
    void PoserSelection();
    void ReprendreToutSel();  // l'état du menu quand toute la base est de nouveau sélectionnée
    void CommandeSel(int i);
    void CommandeParente();
    void ListerParente(std::int32_t autre);
    void CommandeIntRech();
    void ListeSelection(bool familles);

    // Recherche d'actes et « Rechercher et remplacer » (fiche_actes.cpp).
    void BrancherActes();
    void CommandeRechActe(bool selection);
    void CommandeRechRemp(int index);
    void RemplacerDepuisListe(int rangee);
    void CommandeRechRempPartout(bool notes);

    void AppliquerZoom(const Zoom& zoom);
    void PlacerPersonne();
    void RetenirPlacePersonne();
    void BrancherFenetre();  // fiche_fenetre.cpp
    std::string FichierExemple() const;
    void ActualiserBarreEtat();
    void AjusterDisposition();
    void RestaurerPlace();
    void RetenirPlace();

    std::unique_ptr<Ui::Fiche> ui_;
    Base base_;
    Options options_;
    OptionsGedcom gedcom_;
    DialogueQt dialogueQt_;
    Dialogue* dialogue_;
    Gedcom* gedcomForm_;
    Editeur* editeur_;
    Personne* personne_;
    InputMsgBox* invite_;
    Inviter inviter_;
    Choisir choisir_;
    std::vector<ChampFrappe> champsSaisis_;
    bool retape_ = false;  // une touche corrigée repasse par son contrôle
    QMenu* menuImage_ = nullptr;
    ReponsesListes reponses_;
    TextesLecture textes_;
    std::filesystem::path ini_;
    Messages messages_;
    std::vector<std::string> recents_;
    ContenuFiche contenu_;
    Zoom zoom_;
    int largeurPerso_ = 0;  // largeur de conception du cadre de la personne
    QFont policeConception_;
    bool ouvert_ = false;
    std::string derniereDateImport_;
    EtatSelection etatSel_;
    std::int32_t nbAncetres_ = 0;
    FormListeChoix* listeChoix_ = nullptr;
    RechActe* rechActe_ = nullptr;
    FenetreArbre* arbre_ = nullptr;
};

}  // namespace arbolix
