#!/usr/bin/env python3
"""Un vrai navigateur et un vrai validateur relisent le site HTML d'Arbolix : Chromium sans tête
charge la page d'accueil et une page de familles (capture d'écran, et DOM où les noms accentués
et les caractères spéciaux doivent se lire tels quels), et tidy ne trouve d'erreur dans aucune page.

Usage : site.py ARBOLIX-CLI DOSSIER FICHIER.ged
Sort avec 77 (test sauté) quand Chromium ou tidy manque, sauf quand CI=true.
"""
import html
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from commun import chromium_lancer, echouer, exiger  # noqa: E402

# Ce que le visiteur doit lire, page par page, une fois les entités et les références décodées.
ATTENDUS = {
    "index.html": ["Le site de Hélène GARNIER", "GARNIER Hélène", "Liste des recherches à faire"],
    "page_0.html": ["DUPONT Jean", "MARTIN & <Cie> Élise \"Lili\"", "Jérôme", "cœur de métier", "BŒUF Zoé"],
}


def main():
    cli, dossier, ged = sys.argv[1:4]
    exiger("tidy")
    shutil.rmtree(dossier, ignore_errors=True)
    os.makedirs(dossier)
    site = os.path.join(dossier, "site")
    accueil = os.path.join(site, "index.html")
    r = subprocess.run([cli, "exporter", "site", ged, accueil, "--date", "23/11/2026"], capture_output=True,
                       timeout=60)
    if r.returncode != 0:
        echouer("arbolix-cli exporter site rend %d : %s" % (r.returncode, r.stderr.decode(errors="replace")))

    fautes = []
    pages = sorted(p for p in os.listdir(site) if p.endswith(".html"))
    for page in pages:
        t = subprocess.run(["tidy", "-e", "-q", "-latin1", os.path.join(site, page)], capture_output=True,
                           timeout=60)
        erreurs = [l for l in t.stderr.decode("latin-1").splitlines() if "Error:" in l]
        if t.returncode > 1 or erreurs:
            fautes.append("tidy, %s : %s" % (page, "; ".join(erreurs) or t.stderr.decode("latin-1")[:500]))

    for page, textes in ATTENDUS.items():
        url = "file://" + os.path.abspath(os.path.join(site, page))
        image = os.path.abspath(os.path.join(dossier, page.replace(".html", ".png")))
        chromium_lancer(url, "--screenshot=" + image, "--window-size=1280,900", dossier=dossier)
        if not os.path.exists(image) or os.path.getsize(image) < 1000:
            fautes.append("Chromium n'a pas fait la capture de " + page)
        dom = html.unescape(chromium_lancer(url, "--dump-dom", dossier=dossier))
        for texte in textes:
            if texte not in dom:
                fautes.append("%s : « %s » ne se lit pas dans le DOM" % (page, texte))

    if fautes:
        echouer("\n".join(fautes))
    print("%d pages valides, captures dans %s" % (len(pages), dossier))


if __name__ == "__main__":
    main()
