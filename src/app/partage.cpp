#include "app/partage.h"

#include <system_error>

#include "app/messages.h"
#include "platform/ini.h"

namespace arbolix {

namespace fs = std::filesystem;

namespace {

fs::path DossierInstalle(const fs::path& dossierExecutable) {
    return (dossierExecutable / ".." / "share" / "arbolix").lexically_normal();
}

}  // namespace

fs::path CheminPartage(const fs::path& dossierExecutable, const fs::path& nom) {
    std::error_code ec;
    const fs::path aCote = dossierExecutable / nom;
    if (fs::exists(aCote, ec)) return aCote;
    const fs::path installe = DossierInstalle(dossierExecutable) / nom;
    if (fs::exists(installe, ec)) return installe;
    return aCote;
}

bool ProgrammeInstalle(const fs::path& dossierExecutable) {
    std::error_code ec;
    const fs::path messages = CheminMessages(dossierExecutable);
    return messages.parent_path() == DossierInstalle(dossierExecutable) && fs::exists(messages, ec);
}

fs::path CheminReglages(const fs::path& dossierExecutable) {
    return CheminIni(ProgrammeInstalle(dossierExecutable) ? fs::path() : dossierExecutable);
}

}  // namespace arbolix
