// Interdit : le magasin ne voit pas la fiche.
#include "card/notes.h"
