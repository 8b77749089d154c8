#include "store/listes_choix.h"

#include <algorithm>

namespace arbolix {

std::vector<std::string> ListeChoix::Triee() const {
    std::vector<std::string> v(valeurs_.begin(), valeurs_.end());
    std::sort(v.begin(), v.end());
    return v;
}

}  // namespace arbolix
