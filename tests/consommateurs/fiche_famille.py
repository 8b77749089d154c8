#!/usr/bin/env python3
"""pdftotext relit la fiche familiale qu'écrit arbolix-cli fiche-famille : la tête, chaque
conjoint et chaque enfant avec ses accents, une page A4 ; pdfinfo y lit le titre.

Usage : fiche_famille.py ARBOLIX-CLI DOSSIER FICHIER.ged
Sort avec 77 (test sauté) quand pdftotext manque, sauf quand CI=true.
"""
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from commun import echouer, exiger, pdf_en_texte, pdf_infos  # noqa: E402

ATTENDUS = [
    "Généalogie : fichier famille-été.ged : fiche familiale n° 1 imprimée le 23/11/2026",
    "DUPONT Jean, laboureur",
    "MARTIN Marie, couturière",
    "x20/06/1820 Toul ; 3 enfants :",
    "Pierre, laboureur",
    "Anne,",
    "Louis, tisserand, soldat",
    "x1849 avec DURAND Jeanne (fiche 2)",
]


def main():
    cli, dossier, ged = sys.argv[1:4]
    exiger("pdftotext", "pdfinfo")
    os.makedirs(dossier, exist_ok=True)
    # Un nom court et accentué, donné depuis son dossier : la tête le répète tel quel.
    shutil.copyfile(ged, os.path.join(dossier, "famille-été.ged"))
    r = subprocess.run([os.path.abspath(cli), "fiche-famille", "famille-été.ged", "1", "fiche-1.pdf", "--date",
                        "23/11/2026"], capture_output=True, timeout=60, cwd=dossier)
    pdf = os.path.join(dossier, "fiche-1.pdf")
    if r.returncode != 0:
        echouer("arbolix-cli fiche-famille rend %d : %s" % (r.returncode, r.stderr.decode(errors="replace")))
    # pdftotext rend les blancs qui se suivent comme un seul : on compare mot à mot.
    lignes = [" ".join(l.split()) for l in pdf_en_texte(pdf).splitlines()]
    fautes = [a for a in ATTENDUS if " ".join(a.split()) not in lignes]
    infos = pdf_infos(pdf)
    if infos.get("Pages") != "1":
        fautes.append("pages : %s" % infos.get("Pages"))
    if infos.get("Title") != "Fiche familiale n° 1":
        fautes.append("titre : %s" % infos.get("Title"))
    if not infos.get("Page size", "").startswith("595.28 x 841.89"):
        fautes.append("format : %s" % infos.get("Page size"))
    if fautes:
        echouer("lignes absentes ou fausses :\n  " + "\n  ".join(fautes) + "\n--- lu :\n" + "\n".join(lignes))
    print("fiche familiale relue par pdftotext : %d lignes attendues trouvées" % len(ATTENDUS))


main()
