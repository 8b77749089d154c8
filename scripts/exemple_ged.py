#!/usr/bin/env python3
# Écrit share/exemple.ged : une famille française sur sept générations, en ANSI (1252), CR LF.
# Les Martin du Périgord et les Delmas du Quercy ; deux cousins germains s'épousent (implexe).
import pathlib

P = {}   # numéro -> (prénoms, nom, sexe, naissance, lieu_n, décès, lieu_d, métier)
F = []   # (mari, femme, date, lieu, enfants, témoins)

def pers(n, prenoms, nom, sexe, nais="", ln="", dec="", ld="", metier="", **kw):
    P[n] = dict(prenoms=prenoms, nom=nom, sexe=sexe, nais=nais, ln=ln, dec=dec, ld=ld, metier=metier, **kw)

# Génération 1 (vers 1690)
pers(1, "Pierre", "MARTIN", "M", "ABT 1690", "Périgueux", "12 FEB 1752", "Périgueux", "Laboureur")
pers(2, "Anne", "LAGARDE", "F", "1694", "Bergerac", "BEF 1760", "Périgueux")
# Génération 2
pers(3, "Jean", "MARTIN", "M", "3 MAR 1718", "Périgueux", "24 NOV 1779", "Sarlat", "Tisserand")
pers(4, "Marguerite", "FAURE", "F", "1722", "Sarlat", "9 JAN 1790", "Sarlat")
pers(5, "Jeanne", "MARTIN", "F", "15 AUG 1721", "Périgueux", "1788", "Cahors")
pers(6, "François", "DELMAS", "M", "ABT 1715", "Cahors", "2 APR 1775", "Cahors", "Vigneron")
# Génération 3 : deux cousins germains, petits-enfants de Pierre et Anne
pers(7, "Jacques", "MARTIN", "M", "7 JUN 1745", "Sarlat", "18 OCT 1811", "Sarlat", "Tisserand")
pers(8, "Élisabeth", "DELMAS", "F", "22 DEC 1748", "Cahors", "5 MAY 1820", "Sarlat",
     note="Cousine germaine de son mari : dispense de consanguinité accordée par l'évêché de Cahors.")
pers(9, "Étienne", "DELMAS", "M", "1751", "Cahors", "", "", "Tonnelier")
# Génération 4
pers(10, "Joseph", "MARTIN", "M", "11 FEB 1772", "Sarlat", "30 MAR 1840", "Bordeaux", "Marchand drapier")
pers(11, "Thérèse", "BOUYSSOU", "F", "1776", "Souillac", "BET 1840 AND 1845", "Bordeaux")
pers(12, "Antoine", "MARTIN", "M", "2 SEP 1774", "Sarlat", "1794", "Mayence", "Soldat",
     note="Volontaire de la levée en masse, mort à l'armée du Rhin.")
# Génération 5
pers(13, "Louis Auguste", "MARTIN", "M", "19 JUL 1801", "Bordeaux", "3 JAN 1870", "Bordeaux", "Négociant")
pers(14, "Adélaïde", "LESPINASSE", "F", "8 OCT 1805", "Libourne", "27 FEB 1881", "Bordeaux")
pers(15, "Rosalie", "MARTIN", "F", "1804", "Bordeaux", "", "")
# Génération 6
pers(16, "Émile", "MARTIN", "M", "14 MAY 1832", "Bordeaux", "ABT 1900", "Paris", "Pharmacien")
pers(17, "Céline", "GÉRAUD", "F", "25 DEC 1836", "Angoulême", "12 JUN 1911", "Paris")
pers(18, "Noémie", "MARTIN", "F", "1835", "Bordeaux", "1836", "Bordeaux")
# Génération 7
pers(19, "Paul Émile", "MARTIN", "M", "2 FEB 1862", "Paris", "16 NOV 1918", "Verdun", "Instituteur",
     note="Mort pour la France.")
pers(20, "Louise", "CHÂTEAU", "F", "9 APR 1866", "Besançon", "1950", "Besançon")
pers(21, "Hélène", "MARTIN", "F", "30 SEP 1894", "Besançon", "", "", "Institutrice")
# Témoins et parrains
pers(22, "Bernard", "FAURE", "M", "1720", "Sarlat", "", "", "Curé de Sarlat")
pers(23, "Marie", "LAGARDE", "F", "1725", "Bergerac")
pers(24, "Honoré", "LESPINASSE", "M", "1770", "Libourne", "", "", "Notaire")

F.append(dict(mari=1, femme=2, date="14 JAN 1716", lieu="Périgueux", enfants=[3, 5]))
F.append(dict(mari=3, femme=4, date="20 FEB 1744", lieu="Sarlat", enfants=[7], temoins=[(22, "Witness")]))
F.append(dict(mari=6, femme=5, date="6 JUN 1746", lieu="Cahors", enfants=[8, 9]))
F.append(dict(mari=7, femme=8, date="ABT 1770", lieu="Sarlat", enfants=[10, 12]))
F.append(dict(mari=10, femme=11, date="17 APR 1799", lieu="Bordeaux", enfants=[13, 15], temoins=[(24, "Witness")]))
F.append(dict(mari=13, femme=14, date="2 JUL 1829", lieu="Libourne", enfants=[16, 18], contrat="28 JUN 1829"))
F.append(dict(mari=16, femme=17, date="11 MAY 1860", lieu="Paris", enfants=[19]))
F.append(dict(mari=19, femme=20, date="BET 1892 AND 1893", lieu="Besançon", enfants=[21]))

lignes = ["0 HEAD", "1 SOUR ARBOLIX", "2 VERS 11", "1 GEDC", "2 VERS 5.5", "2 FORM LINEAGE-LINKED",
          "1 CHAR ANSI", "1 LANG French", "1 SUBM @SUB1@",
          "1 NOTE Famille Martin du Périgord et ses alliés : fichier d'exemple d'Arbolix.",
          "2 CONT Les noms, dates et lieux sont inventés.",
          "0 @SUB1@ SUBM", "1 NAME Claire /Martin/"]
for n, p in P.items():
    lignes += [f"0 @I{n}@ INDI", f"1 NAME {p['prenoms']} /{p['nom']}/", f"1 SEX {p['sexe']}"]
    if p["metier"]:
        lignes.append(f"1 OCCU {p['metier']}")
    if n == 1:
        lignes.append("1 REFN 1")
    if p["nais"] or p["ln"]:
        lignes.append("1 BIRT")
        if p["nais"]: lignes.append(f"2 DATE {p['nais']}")
        if p["ln"]: lignes.append(f"2 PLAC {p['ln']}")
        if n == 7:
            lignes += ["2 SOUR @S1@", "2 ASSO @I22@", "3 RELA Godfather", "2 ASSO @I23@", "3 RELA Godmother"]
        if n == 13:
            lignes += ["2 SOUR Registre des naissances de Bordeaux, an IX", "2 ASSO @I24@", "3 RELA Témoin"]
    if p["dec"] or p["ld"]:
        lignes.append("1 DEAT")
        if p["dec"]: lignes.append(f"2 DATE {p['dec']}")
        if p["ld"]: lignes.append(f"2 PLAC {p['ld']}")
        if n == 19: lignes.append("2 NOTE @N1@")
    if "note" in p:
        lignes.append(f"1 NOTE {p['note']}")
    if n == 10:
        lignes += ["1 RESI", "2 PLAC Bordeaux", "2 DATE 1806"]
for f, fam in enumerate(F, 1):
    lignes += [f"0 @F{f}@ FAM", f"1 HUSB @I{fam['mari']}@", f"1 WIFE @I{fam['femme']}@"]
    if "contrat" in fam:
        lignes += ["1 MARC", f"2 DATE {fam['contrat']}", f"2 PLAC {fam['lieu']}", "2 NOTE Contrat reçu par Maître Lespinasse."]
    lignes += ["1 MARR", f"2 DATE {fam['date']}", f"2 PLAC {fam['lieu']}"]
    for t, role in fam.get("temoins", []):
        lignes += [f"2 ASSO @I{t}@", f"3 RELA {role}"]
    if f == 4:
        lignes += ["2 SOUR @S1@"]
    for e in fam["enfants"]:
        lignes.append(f"1 CHIL @I{e}@")
lignes += ["0 @N1@ NOTE", "1 CONC Fiche matricule : tué à l'ennemi devant Verdun le 16 novembre 1918,",
           "1 CONT inhumé à la nécropole nationale de Douaumont.",
           "0 @S1@ SOUR", "1 TITL Registres paroissiaux de Sarlat", "1 TEXT Archives départementales de la Dordogne, 5 E 467",
           "0 TRLR"]
texte = "\r\n".join(lignes) + "\r\n"
sortie = pathlib.Path(__file__).resolve().parent.parent / "share" / "exemple.ged"
sortie.write_bytes(texte.encode("cp1252"))
print(sortie, len(P), "personnes", len(F), "familles")
