// Les documents RTF des rapports : l'en-tête (polices, styles, informations, page, en-tête et pied
// du livre, titre, bloc de l'auteur, texte complémentaire) et l'échappement du texte des fiches.
#pragma once

#include <string>
#include <string_view>

#include "reports/contexte_export.h"
#include "store/options.h"

namespace arbolix {

// Le texte d'une fiche dans un document RTF : "\", "{" et "}" échappés, les octets au-delà de 127
// et les caractères de commande en \'hh, la tabulation en \tab. Les CR LF restent : l'appelant en
// fait ses séparateurs.
std::string EchapperRTF(std::string_view texte);
void AjouterRTF(std::string& sortie, std::string_view texte);

// OuvrirRTF : écrit l'en-tête dans f. Le document se ferme par le "}" final de l'appelant.
// tabulation en twips, ou en centimètres au-dessous de 50. livre : A4, en-tête (titre) et pied
// (numéro de page), colonnes ; sinon la page et ses marges sont celles de la fenêtre Arbre, en
// paysage quand elle est plus large que haute. arbre : corps 11 points, sans espace après les
// paragraphes ni titre. Le titre et l'adresse du généalogiste sont échappés ; TexteComp passe tel
// quel : ce sont les balises de l'utilisateur.
void OuvrirRTF(const ContexteExport& ctx, TexteRapport& f, bool deuxColonnes, bool livre, bool arbre,
               int tabulation, const OptionsArbre& page = {});

}  // namespace arbolix
