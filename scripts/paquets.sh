#!/usr/bin/env bash
# Installe les paquets Debian qui manquent pour construire et tester Arbolix.
# scripts/paquets.sh consommateurs : aussi les programmes qui relisent nos sorties dans les tests.
# scripts/paquets.sh paquet : aussi de quoi faire le paquet Debian (dpkg-shlibdeps).
set -euo pipefail
paquets=(cmake ninja-build g++ ccache qt6-base-dev qt6-svg-dev libgtest-dev libbenchmark-dev
         libgl-dev xvfb python3 qt6-translations-l10n)
if [ "${1:-}" = consommateurs ]; then
  # gramps, MariaDB, LibreOffice, Chromium, tidy, xmllint et rsvg relisent nos sorties ; le reste
  # construit, vérifie et installe le paquet Debian.
  paquets+=(gramps mariadb-server mariadb-client dpkg-dev lintian desktop-file-utils appstream xdg-utils
            shared-mime-info libfile-mimeinfo-perl xauth xdotool libreoffice-writer-nogui poppler-utils
            chromium tidy libxml2-utils librsvg2-bin)
fi
if [ "${1:-}" = paquet ]; then
  paquets+=(dpkg-dev)
fi
manquants=()
for p in "${paquets[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || manquants+=("$p")
done
if [ ${#manquants[@]} -gt 0 ]; then
  echo "Installation de : ${manquants[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${manquants[@]}" >/dev/null
fi
