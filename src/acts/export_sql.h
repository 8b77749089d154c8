// Export SQL d'un livre de familles : le script qui charge personnes, familles et actes d'un
// fichier GEDCOM dans les tables epa_* de la base de la fédération (schéma : share/epa_schema.sql).
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "acts/nom_epa.h"
#include "store/base.h"

namespace arbolix {

class Progression;

// Ce que le script a écrit : lignes des tables et bornes des années.
struct CompteursSQL {
    std::int32_t NbPersosSQL = 0;   // lignes de epa_personne
    std::int32_t NbFamisSQL = 0;    // lignes de epa_famille
    std::int32_t NbEvenements = 0;  // lignes de epa_acte
    std::int32_t NbActes = 0;       // évènements datés d'un jour et situés : de vrais actes
    std::int32_t AnDebut = 0;
    std::int32_t AnFin = 0;
};

// Chaque octet 1252 de 128 ou plus en UTF-8, d'après son point de code Unicode.
std::string EncoderUTF8(std::string_view texte);
// Le code phonétique en nombre : code ANSI de sa lettre puis ses chiffres ("N000" : "78000").
std::string CodeNumerique(std::string_view code);
// Un texte entre apostrophes : EchapperSQL, et l'octet nul en \0 que le client refuserait.
std::string ValeurSQL(std::string_view texte);
// La rangée d'un évènement dans epa_acte ; numero : "@np + 12" ou "@nap + 3".
std::string LigneSQLActe(const Acte& a, int numtype, std::string_view numero, std::int32_t nbEvenements);

// Écrit tout le script (fins de ligne CR LF) et rend ses compteurs. NumLivre des personnes
// et familles reçoit leur numéro dans le livre, 0 pour celles qui n'y entrent pas.
CompteursSQL EcrireScriptSQL(Base& base, const NomEPA& nom, std::ostream& sortie);

struct ResultatExportSQL {
    bool Ok = false;
    std::string Erreur;   // 1252 : nomme le fichier et dit pourquoi
    std::string Gedcom;   // le fichier lu
    std::string Script;   // le fichier écrit
    std::string Journal;  // journal de lecture, 1252, CR LF
    CompteursSQL Compteurs;
};

// Lit le GEDCOM nommé par le chemin .EPA et écrit le script à côté, d'un seul
// renommage : un échec laisse l'ancien script tel quel. Aucune exception ne sort d'ici.
ResultatExportSQL ExporterSQL(std::string_view cheminEpa, Progression& progression);

}  // namespace arbolix
