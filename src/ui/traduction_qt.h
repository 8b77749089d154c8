// Les textes de Qt lui-même en français (sélecteurs de fichiers, boutons standard), pris à
// l'installation de Qt ; sans eux la fenêtre vient quand même, ces textes restant en anglais.
#pragma once

class QCoreApplication;

namespace arbolix {

// Installe qtbase_fr.qm du dossier des traductions de Qt ; faux s'il manque.
bool ChargerTraductionQt(QCoreApplication& application);

}  // namespace arbolix
