// Un dossier temporaire propre à l'essai en cours : les essais tournent en parallèle.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace arbolix::essais {

// temp/arbolix-<nom>-<essai>-<processus> : deux essais ne partagent jamais un dossier.
inline std::filesystem::path DossierEssai(const std::string& nom) {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string essai = info ? std::string(info->test_suite_name()) + "." + info->name() : "hors-essai";
    return std::filesystem::temp_directory_path() /
           ("arbolix-" + nom + "-" + essai + "-" + std::to_string(::getpid()));
}

}  // namespace arbolix::essais
