#!/usr/bin/env python3
"""Les arbres d'Arbolix relus par de vrais programmes : chaque SVG est du XML bien formé
(xmllint) et se rend en une image qui n'est pas vide (rsvg-convert) ; l'arbre PDF se lit par
pdftotext, et les arbres RTF passent par LibreOffice : tous portent les noms de leurs cases.

Usage : arbres.py ARBOLIX-CLI DOSSIER-TEMPORAIRE DONNEES
(DONNEES : tests/donnees, d'où viennent les fichiers d'essai et les SVG de référence).
Sort avec 77 (test sauté) quand un programme manque, sauf quand CI=true.
"""
import glob
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import commun  # noqa: E402

cli, dossier, donnees = sys.argv[1:4]
commun.exiger("xmllint", "rsvg-convert", "pdftotext")
shutil.rmtree(dossier, ignore_errors=True)
os.makedirs(dossier)
famille = os.path.join(donnees, "arbres", "famille.ged")
cousins = os.path.join(donnees, "parente", "cousins.ged")

# Chaque genre, et des entrées qui cherchent la faute : noms à « & » et « < », nom de 500 lettres,
# personne sans ascendants, page juste assez grande.
long_nom = os.path.join(dossier, "long.ged")
with open(famille, "rb") as f:
    texte = f.read().replace(b"/MASSON/", b"/" + b"M" * 500 + b"/")
with open(long_nom, "wb") as f:
    f.write(texte)
appels = {
    "ascendant-a4": ["ascendant-a4", famille],
    "ascendant": ["ascendant", famille, "--generations", "6", "--page", "594x420"],
    "ascendant-vide": ["ascendant", famille, "--personne", "5", "--generations", "4"],
    "ascendant-long": ["ascendant-a4", long_nom],
    "etiquettes": ["etiquettes", famille, "--case", "60x25", "--page", "210x60"],
    "parente": ["parente", cousins, "--personne", "2", "--autre", "3"],
    "descendant": ["descendant", famille, "--personne", "4", "--page", "210x80", "--tous-descendants"],
}
svgs = []
for nom, args in appels.items():
    svg = os.path.join(dossier, nom + ".svg")
    r = subprocess.run([cli, "arbre", args[0], args[1], svg, *args[2:], "--date", "23/11/2026"],
                       capture_output=True, text=True, errors="replace")
    if r.returncode != 0:
        commun.echouer(f"arbolix-cli arbre {nom} : {r.stderr}")
    svgs.append(svg)
svgs += glob.glob(os.path.join(donnees, "arbres", "*.svg"))

for svg in svgs:
    commun.xml_bien_forme(svg)
    png = os.path.join(dossier, os.path.basename(svg)[:-4] + ".png")
    commun.svg_en_png(svg, png)
    if commun.part_encree_png(png) < 0.001:
        commun.echouer(f"{svg} se rend en une image vide ({png})")

pdf = os.path.join(dossier, "ascendant-a4.pdf")
r = subprocess.run([cli, "arbre", "ascendant-a4", famille, pdf], capture_output=True, text=True)
if r.returncode != 0:
    commun.echouer(f"arbolix-cli arbre en PDF : {r.stderr}")
lu = commun.pdf_en_texte(pdf)
for nom in ("LEFÈVRE Élise", "LEFÈVRE Henri", "MASSON Œdipe", "Légende :"):
    if nom not in lu:
        commun.echouer(f"« {nom} » manque au texte de {pdf}")
# Les arbres RTF, convertis en un seul lancement de LibreOffice : les noms des cases se lisent.
rtfs = []
for nom in ("ascendant-a4", "descendant"):
    rtf = os.path.join(dossier, nom + ".rtf")
    args = appels[nom]
    r = subprocess.run([cli, "arbre", args[0], args[1], rtf, *args[2:]], capture_output=True, text=True)
    if r.returncode != 0:
        commun.echouer(f"arbolix-cli arbre {nom} en RTF : {r.stderr}")
    rtfs.append(rtf)
for pdf_rtf, attendus in zip(commun.bureautique_en_pdf(rtfs, os.path.join(dossier, "rtf")),
                             (("LEFÈVRE Élise", "MASSON Œdipe", "DUPONT & FILS"),
                              ("LEFÈVRE Henri", "LEFÈVRE Paul", "Hippolyte"))):
    lu = commun.pdf_en_texte(pdf_rtf)
    for nom in attendus:
        if nom not in lu:
            commun.echouer(f"« {nom} » manque au texte de {pdf_rtf} :\n{lu[:1500]}")
print(f"{len(svgs)} SVG bien formés et rendus, PDF lu, {len(rtfs)} RTF lus par LibreOffice")
