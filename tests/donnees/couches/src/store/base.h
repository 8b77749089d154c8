// Permis : la plateforme est sous le magasin.
#include "platform/dialogue.h"
