"""Les tables d'actes relues par d'autres programmes : le fichier NIMEGUE par le module csv de
Python (un ";" CSV en 1252, autant de champs à chaque rangée), le RTF d'une table TMAO par
LibreOffice (converti en PDF, dont le texte porte le titre et les noms de la table).

tmao.py ARBOLIX-CLI DOSSIER FICHIER.ged
"""
import csv
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from commun import bureautique_en_pdf, echouer, exiger, pdf_en_texte  # noqa: E402


def lancer(cli, *args):
    r = subprocess.run([cli, *args], capture_output=True, text=True, errors="replace", timeout=60)
    if r.returncode != 0:
        echouer(f"arbolix-cli {' '.join(args)} : {r.returncode}\n{r.stdout}\n{r.stderr}")


def nimegue(cli, dossier, gedcom):
    sortie = os.path.join(dossier, "mariages.txt")
    lancer(cli, "exporter", "actes", gedcom, sortie, "--type", "M", "--date", "01/01/2026")
    with open(sortie, encoding="cp1252", newline="") as f:
        rangees = list(csv.reader(f, delimiter=";"))
    tete, actes = rangees[0], rangees[1:]
    if tete[:5] != ["Version", "Commune", "Type", "Source", "Date"]:
        echouer(f"en-tête inattendu : {tete[:5]}")
    if not actes:
        echouer("aucun mariage exporté")
    for i, r in enumerate(actes, 2):
        if len(r) != len(tete) or r[0] != "NIMEGUE-V3" or r[2] != "M":
            echouer(f"rangée {i} : {len(r)} champs pour {len(tete)}, début {r[:3]}")
    print(f"NIMEGUE : {len(actes)} mariages de {len(tete)} champs")


def rtf(cli, dossier):
    tableau = os.path.join(dossier, "mariages-table.txt")
    with open(tableau, "w", encoding="cp1252", newline="") as f:
        f.write("Nom1\tPrenom1\r\n")
        f.write("DUPONT\tJean\tfils de Pierre\t\t\t\tMARTIN\tMarie\tfille de Claude\t\t\t\t12/02/1750\tNancy\r\n")
        f.write("ÉTIENNE\tLouis\t\t\t\t\tBLANC\tAnne\t\t\t\t\t12/vend/3\r\n")
    lancer(cli, "txt2tm", tableau)
    table = os.path.join(dossier, "mariages-table.TM")
    sortie = os.path.join(dossier, "mariages-table.rtf")
    lancer(cli, "tmao", table, sortie, "--type", "M", "--date", "01/01/2026")
    texte = pdf_en_texte(bureautique_en_pdf([sortie], dossier)[0])
    for attendu in ("TABLE DES MARIAGES", "DUPONT", "MARTIN", "ÉTIENNE", "2 actes"):
        if attendu not in texte:
            echouer(f"« {attendu} » absent du PDF :\n{texte[:2000]}")
    print("RTF : relu par LibreOffice")


def main():
    cli, dossier, gedcom = sys.argv[1:4]
    exiger("soffice", "pdftotext")
    os.makedirs(dossier, exist_ok=True)
    nimegue(cli, dossier, gedcom)
    rtf(cli, dossier)


if __name__ == "__main__":
    main()
