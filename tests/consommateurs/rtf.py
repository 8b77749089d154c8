#!/usr/bin/env python3
"""LibreOffice ouvre les documents RTF d'Arbolix : les références du livre et de la descendance, et
ceux que arbolix-cli écrit d'un fichier hostile (barres obliques inverses, accolades, octets de
commande, note de 32 000 caractères, 25 enfants et 7 unions) ou d'une personne sans descendant. Tous passent
en PDF en un seul lancement ; pdftotext y retrouve le titre, les noms accentués, l'index et la note
de bas de page, pdfinfo le titre et l'auteur. Les groupes { } de chaque document s'équilibrent.

Usage : rtf.py ARBOLIX-CLI DOSSIER DOSSIER-DES-REFERENCES
Sort avec 77 (test sauté) quand LibreOffice ou poppler manque, sauf quand CI=true.
"""
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import commun  # noqa: E402

NOMS = ["DUPONT Pierre", "MARTIN Marie", "DUPONT Jean", "BLANC Louise", "DUPONT Paul", "DUPONT Luc",
        "DUPONT Zoé", "DUPONT Hugo", "ROUX Ève", "DE LA ROCHE {aînée} Claire & Zoé", "ÉLISE Élise"]


def groupes_equilibres(octets):
    profondeur, i = 0, 0
    while i < len(octets):
        c = octets[i:i + 1]
        if c == b"\\":
            i += 2
            continue
        if c == b"{":
            profondeur += 1
        elif c == b"}":
            profondeur -= 1
            if profondeur < 0:
                return False
        i += 1
    return profondeur == 0


def fichier_hostile(chemin):
    lignes = ["0 HEAD", "1 CHAR ANSI", "0 @I1@ INDI", "1 NAME Ana\\ {x} /BAS}{\\par/", "1 SEX M",
              "1 NOTE " + "x\x01\x02\x1f" * 10 + "é" * 200]
    lignes += ["2 CONC " + "n" * 200 for _ in range(160)]
    for u in range(1, 8):
        lignes.append("1 FAMS @F%d@" % u)
    n = 2
    familles = []
    for u in range(1, 8):
        femme = n
        lignes += ["0 @I%d@ INDI" % n, "1 NAME Femme%d /{ÉPOUSE}/" % u, "1 SEX F", "1 FAMS @F%d@" % u]
        n += 1
        enfants = []
        for e in range(25):
            lignes += ["0 @I%d@ INDI" % n, "1 NAME E%d\\ /BAS}{\\par/" % e, "1 SEX M", "1 FAMC @F%d@" % u]
            enfants.append(n)
            n += 1
        familles.append((u, femme, enfants))
    for u, femme, enfants in familles:
        lignes += ["0 @F%d@ FAM" % u, "1 HUSB @I1@", "1 WIFE @I%d@" % femme]
        lignes += ["1 CHIL @I%d@" % e for e in enfants]
    lignes.append("0 TRLR")
    with open(chemin, "wb") as f:
        f.write("\r\n".join(lignes).encode("cp1252") + b"\r\n")


def exporter(cli, *args):
    r = subprocess.run([cli, "exporter", *args, "--date", "23/11/2026"], capture_output=True, timeout=120)
    if r.returncode != 0:
        commun.echouer("arbolix-cli exporter %s rend %d : %s" % (args, r.returncode, r.stderr.decode(errors="replace")))


def main():
    cli, dossier, references = sys.argv[1:4]
    commun.exiger("soffice", "pdftotext", "pdfinfo")
    shutil.rmtree(dossier, ignore_errors=True)
    os.makedirs(dossier)
    rtfs = sorted(os.path.join(references, f) for f in os.listdir(references) if f.endswith(".rtf"))
    hostile = os.path.join(dossier, "hostile.ged")
    fichier_hostile(hostile)
    for genre in ("livre", "descendance"):
        sortie = os.path.join(dossier, "hostile-%s.rtf" % genre)
        exporter(cli, genre, hostile, sortie, "--personne", "1", "--notes-bas-de-page", "--colonnes", "2")
        rtfs.append(sortie)
    # Personne à parcourir : la descendance d'un enfant sans union.
    vide = os.path.join(dossier, "hostile-sans-descendant.rtf")
    exporter(cli, "descendance", hostile, vide, "--personne", "3")
    rtfs.append(vide)
    fautes = []
    for r in rtfs:
        with open(r, "rb") as f:
            if not groupes_equilibres(f.read()):
                fautes.append("%s : groupes déséquilibrés" % os.path.basename(r))
    pdfs = commun.bureautique_en_pdf(rtfs, os.path.join(dossier, "pdf"))
    for rtf, pdf in zip(rtfs, pdfs):
        nom = os.path.basename(rtf)
        texte = " ".join(commun.pdf_en_texte(pdf).split())
        infos = commun.pdf_infos(pdf)
        if not infos.get("Author", "").startswith("Arbolix"):
            fautes.append("%s : auteur %r" % (nom, infos.get("Author")))
        if nom.startswith("hostile"):
            if "BAS}{\\par" not in texte:
                fautes.append("%s : le nom aux accolades manque" % nom)
            continue
        titre = "Livre des familles de Désiré" if nom.startswith("livre") else "Descendance de Pierre"
        if infos.get("Title") != titre:
            fautes.append("%s : titre %r" % (nom, infos.get("Title")))
        if titre not in texte:
            fautes.append("%s : le titre manque au texte" % nom)
        for n in NOMS if nom.startswith("livre") else NOMS[:10]:
            if n not in texte:
                fautes.append("%s : %s manque" % (nom, n))
        if nom.startswith("livre") and "Index des patronymes" not in texte:
            fautes.append("%s : l'index des patronymes manque" % nom)
        if nom == "livre.rtf":
            # La note de la mort de Pierre au pied d'une page : seuls d'autres notes et le numéro de
            # page la suivent.
            pages = [p for p in commun.pdf_en_texte(pdf, True).split("\f") if "Mort de la fièvre" in p]
            lignes = [l.strip() for l in pages[0].splitlines() if l.strip()] if pages else []
            fin = lignes[next((i for i, l in enumerate(lignes) if "Mort de la fièvre" in l), 0):]
            if not pages or len(fin) > 6 or not fin[0].endswith("Mort de la fièvre"):
                fautes.append("%s : la note de bas de page n'est pas au pied de sa page" % nom)
    if fautes:
        commun.echouer("\n".join(fautes))
    print("%d documents RTF ouverts par LibreOffice" % len(rtfs))


if __name__ == "__main__":
    main()
