// Nettoyage de tout le fichier : notes et sources externes recopiées dans les fiches, virgules des lieux.
#pragma once

#include "store/base.h"

namespace arbolix {

// MenuConvNSExtInt : chaque lien "@N12@" ou "@S12@" d'une personne ou d'une famille (une ligne
// de note, ou un lien au fil d'une source) devient le texte de sa note ou source (« Titre : Texte »). Les
// notes et sources externes disparaissent ensuite, avec leurs retours de liens : aucun lien ne reste dans le
// vide.
void ConvertirNotesSourcesExternes(Base& base);

// MenuNettoieLieux : blancs doublés et virgules vides retirés de tous les lieux et de la
// liste des lieux ; une virgule en tête ou en fin est coupée, les blancs autour aussi.
void NettoyerLieux(Base& base);

// Un lieu seul, par les mêmes étapes (", Lyon," donne "Lyon").
std::string NettoyerLieu(std::string lieu);

}  // namespace arbolix
