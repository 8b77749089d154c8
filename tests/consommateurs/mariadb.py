#!/usr/bin/env python3
"""MariaDB charge les scripts de l'export SQL d'Arbolix : un serveur à soi (dossier temporaire,
sans réseau, socket dans ce dossier), le schéma de share/epa_schema.sql, puis le script de
chaque livre. Vérifie : autant de lignes que l'export en annonce, les accents intacts en utf8mb4,
numparents qui mène à la famille des parents, un second livre ajouté à la suite avec d'autres
numéros, un livre déjà en ligne refusé sans rien changer.

Usage : mariadb.py ARBOLIX-CLI DOSSIER SCHEMA GENERATEUR FICHIER.ged...
Chaque FICHIER.ged est copié sous un nom CODE-TITRE.ged ; « reel-10000 » à la place d'un
fichier : celui de 10 000 personnes de GENERATEUR (gen_gedcom.py). Sort avec 77 (test sauté)
quand MariaDB manque, sauf quand CI=true.
"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SAUTE = 77
BASE = "livres"
DELAI = 40  # secondes au plus pour que le serveur réponde ou s'arrête
# Le fichier que les bancs ont déjà tiré du générateur, avec les mêmes arguments.
DEJA_GENERE = "/tmp/arbolix-reel-10000.ged"


def programme(nom):
    return shutil.which(nom) or shutil.which(nom, path="/usr/sbin:/usr/local/sbin")


class Serveur:
    """Un mariadbd privé lancé par ce test ; arrêté par son numéro de processus."""

    def __init__(self, dossier, memoire="64M"):
        self.dossier = dossier
        self.socket = os.path.join(dossier, "s")
        donnees = os.path.join(dossier, "donnees")
        utilisateur = ["--user=root"] if os.geteuid() == 0 else []
        subprocess.run([programme("mariadb-install-db"), "--no-defaults", "--datadir=" + donnees,
                        "--auth-root-authentication-method=normal", "--skip-test-db"] + utilisateur,
                       check=True, capture_output=True)
        self.journal = os.path.join(dossier, "erreurs.log")
        self.processus = subprocess.Popen(
            [programme("mariadbd"), "--no-defaults", "--datadir=" + donnees, "--socket=" + self.socket,
             "--skip-networking", "--skip-grant-tables", "--pid-file=" + os.path.join(dossier, "pid"),
             "--log-error=" + self.journal, "--innodb-buffer-pool-size=" + memoire, "--innodb-log-file-size=64M",
             "--innodb-flush-log-at-trx-commit=0", "--skip-log-bin"] + utilisateur,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        fin = time.monotonic() + DELAI
        while not self.repond():
            if self.processus.poll() is not None or time.monotonic() > fin:
                raise RuntimeError("le serveur MariaDB ne démarre pas :\n" + self.fin_journal())
            time.sleep(0.05)

    def repond(self):
        if not os.path.exists(self.socket):
            return False
        return subprocess.run([programme("mariadb-admin"), "--no-defaults", "-S", self.socket, "ping"],
                              capture_output=True).returncode == 0

    def fin_journal(self):
        try:
            with open(self.journal, errors="replace") as f:
                return f.read()[-2000:]
        except OSError:
            return ""

    def sql(self, texte, base=BASE, entree=None):
        """Rend (code, sortie, erreurs) ; sortie en lignes de colonnes séparées par des tabulations."""
        commande = [programme("mariadb"), "--no-defaults", "-S", self.socket, "--default-character-set=utf8mb4",
                    "--batch", "--skip-column-names"] + ([base] if base else [])
        if entree is None:
            commande += ["-e", texte]
        r = subprocess.run(commande, stdin=entree, capture_output=True)
        return r.returncode, r.stdout.decode("utf-8"), r.stderr.decode("utf-8", "replace")

    def valeurs(self, texte):
        code, sortie, erreurs = self.sql(texte)
        if code != 0:
            raise RuntimeError(f"{texte} : {erreurs}")
        return [ligne.split("\t") for ligne in sortie.splitlines()]

    def nombre(self, texte):
        return int(self.valeurs(texte)[0][0])

    def arreter(self):
        if self.processus.poll() is None:
            os.kill(self.processus.pid, signal.SIGTERM)
            try:
                self.processus.wait(timeout=DELAI)
            except subprocess.TimeoutExpired:
                os.kill(self.processus.pid, signal.SIGKILL)
                self.processus.wait()


def exporter(cli, epa):
    """Lance arbolix-cli sql ; rend les nombres annoncés."""
    r = subprocess.run([cli, "sql", epa], capture_output=True)
    sortie = r.stdout.decode("utf-8")
    if r.returncode != 0:
        raise RuntimeError(f"arbolix-cli sql {epa} : code {r.returncode}\n{r.stderr.decode('utf-8', 'replace')}")
    nombres = {}
    for cle in ("Personnes", "Familles", "Évènements", "Actes"):
        m = re.search(rf"^{cle} : (\d+)$", sortie, re.M)
        nombres[cle] = int(m.group(1))
    return nombres


EVENEMENTS = {"BIRT", "CHR", "BAPM", "DEAT", "BURI", "MARR", "MARC", "DIV"}


def textes_accentues(ged):
    """Lieux des évènements exportés et noms de famille du fichier (page 1252) qui portent une
    lettre hors ASCII, tels que le script doit les porter : le script change chaque « \\ » en
    « / »."""
    textes, evenement = set(), None
    with open(ged, encoding="cp1252") as f:
        for ligne in f:
            ligne = ligne.rstrip("\r\n")
            if ligne.startswith("1 "):
                evenement = ligne[2:].split(" ")[0]
            lieu = re.match(r"2 PLAC (.+)$", ligne)
            nom = re.match(r"1 NAME [^/]*/([^/]+)/", ligne)
            if lieu and evenement in EVENEMENTS:
                texte = lieu.group(1)
            elif nom:
                texte = nom.group(1)
            else:
                continue
            texte = texte.strip().replace("\\", "/")
            if any(ord(c) > 127 for c in texte):
                textes.add(texte)
    return textes


def parents_du_fichier(ged):
    """Numéro de personne -> (mari, épouse) de sa famille d'origine, pour qui n'en a qu'une avec
    au moins un conjoint."""
    familles, enfants, courant = {}, {}, None
    with open(ged, encoding="cp1252") as f:
        for ligne in f:
            ligne = ligne.rstrip("\r\n")
            m = re.match(r"0 @([IF])(\d+)@ (INDI|FAM)$", ligne)
            if ligne.startswith("0 "):
                courant = (m.group(1), int(m.group(2))) if m else None
                if courant and courant[0] == "F":
                    familles[courant[1]] = [0, 0]
                continue
            lien = re.match(r"1 (FAMC|CHIL|HUSB|WIFE) @[IF](\d+)@", ligne)
            if not (courant and lien):
                continue
            quoi, n = lien.group(1), int(lien.group(2))
            if quoi == "FAMC" and courant[0] == "I":
                enfants.setdefault(courant[1], set()).add(n)
            elif quoi == "CHIL" and courant[0] == "F":
                enfants.setdefault(n, set()).add(courant[1])
            elif courant[0] == "F" and quoi != "FAMC":
                familles[courant[1]][quoi == "WIFE"] = n
    uniques = {e: next(iter(f)) for e, f in enfants.items() if len(f) == 1}
    return {e: tuple(familles[f]) for e, f in uniques.items() if f in familles and any(familles[f])}


def verifier_livre(serveur, nom, nombres, avant, ged):
    fautes = []
    nf = serveur.nombre("SELECT MAX(numfichier) FROM epa_fichier")
    lignes = {
        "Personnes": f"SELECT COUNT(*) FROM epa_personne WHERE numfichier = {nf}",
        "Familles": f"SELECT COUNT(*) FROM epa_famille WHERE numfami > {avant['famille']}",
        "Évènements": f"SELECT COUNT(*) FROM epa_acte WHERE numacte > {avant['acte']}",
    }
    for cle, requete in lignes.items():
        n = serveur.nombre(requete)
        if n != nombres[cle]:
            fautes.append(f"{nom} : {n} lignes pour {cle}, l'export en annonce {nombres[cle]}")
    (nbactes, nbevenements), = serveur.valeurs(f"SELECT nbactes, nbevenements FROM epa_fichier WHERE numfichier = {nf}")
    if (int(nbactes), int(nbevenements)) != (nombres["Actes"], nombres["Évènements"]):
        fautes.append(f"{nom} : epa_fichier dit {nbactes} actes et {nbevenements} évènements")
    # Les numéros du livre viennent après ceux des livres déjà chargés.
    premier = serveur.nombre(f"SELECT IFNULL(MIN(numperso), 0) FROM epa_personne WHERE numfichier = {nf}")
    if nombres["Personnes"] and premier <= avant["personne"]:
        fautes.append(f"{nom} : numéro de personne {premier} repris d'un livre précédent")
    parents = serveur.nombre(
        f"SELECT IFNULL(MIN(numparents), 0) FROM epa_personne WHERE numfichier = {nf} AND numparents > 0")
    if parents and parents <= avant["famille"]:
        fautes.append(f"{nom} : numparents {parents} mène à une famille d'un autre livre")
    # Tout lien mène à une ligne du même livre : acte, conjoint, parents.
    orphelins = {
        "acte sans personne": "SELECT COUNT(*) FROM epa_acte a LEFT JOIN epa_personne p USING (numperso) "
                              "WHERE a.numperso IS NOT NULL AND p.numperso IS NULL",
        "acte sans famille": "SELECT COUNT(*) FROM epa_acte a LEFT JOIN epa_famille f USING (numfami) "
                             "WHERE a.numfami IS NOT NULL AND f.numfami IS NULL",
        "conjoint absent": "SELECT COUNT(*) FROM epa_famille f LEFT JOIN epa_personne m ON m.numperso = f.nummari "
                           "LEFT JOIN epa_personne e ON e.numperso = f.numepouse "
                           "WHERE (f.nummari > 0 AND m.numperso IS NULL) OR (f.numepouse > 0 AND e.numperso IS NULL)",
        "parents hors du livre": "SELECT COUNT(*) FROM epa_personne p JOIN epa_famille f ON f.numfami = p.numparents "
                                 "JOIN epa_personne c ON c.numperso IN (f.nummari, f.numepouse) "
                                 f"WHERE p.numfichier = {nf} AND c.numfichier <> {nf}",
    }
    for quoi, requete in orphelins.items():
        n = serveur.nombre(requete)
        if n:
            fautes.append(f"{nom} : {n} fois {quoi}")
    # numparents mène aux parents que le fichier donne (numorig : le numéro du fichier).
    lus = {int(e): (int(m), int(w)) for e, m, w in serveur.valeurs(
        "SELECT e.numorig, IFNULL(m.numorig, 0), IFNULL(w.numorig, 0) FROM epa_personne e "
        "JOIN epa_famille f ON f.numfami = e.numparents LEFT JOIN epa_personne m ON m.numperso = f.nummari "
        f"LEFT JOIN epa_personne w ON w.numperso = f.numepouse WHERE e.numfichier = {nf}")}
    for enfant, couple in sorted(parents_du_fichier(ged).items()):
        if lus.get(enfant) != couple:
            fautes.append(f"{nom} : @I{enfant}@ a pour parents {lus.get(enfant)} dans MariaDB, {couple} dans le fichier")
    if nombres["Familles"] and not serveur.nombre(
            f"SELECT COUNT(*) FROM epa_personne WHERE numfichier = {nf} AND numparents > 0"):
        fautes.append(f"{nom} : aucun enfant relié à ses parents")
    # Les accents reviennent tels que le fichier les donne, octet pour octet en UTF-8.
    lus = {h for (h,) in serveur.valeurs(
        f"SELECT DISTINCT HEX(lieu) FROM epa_acte WHERE numacte > {avant['acte']} UNION "
        f"SELECT DISTINCT HEX(nom) FROM epa_personne WHERE numfichier = {nf}")}
    for t in sorted(textes_accentues(ged)):
        if t.encode("utf-8").hex().upper() not in lus:
            fautes.append(f"{nom} : « {t} » ne revient pas de MariaDB")
    print(f"{nom} : {nombres['Personnes']} personnes, {nombres['Familles']} familles, "
          f"{nombres['Évènements']} évènements chargés")
    return fautes


def derniers_numeros(serveur):
    (p, f, a), = serveur.valeurs("SELECT (SELECT IFNULL(MAX(numperso), 0) FROM epa_personne), "
                                 "(SELECT IFNULL(MAX(numfami), 0) FROM epa_famille), "
                                 "(SELECT IFNULL(MAX(numacte), 0) FROM epa_acte)")
    return {"personne": int(p), "famille": int(f), "acte": int(a)}


def charger(serveur, script):
    with open(script, "rb") as f:
        return serveur.sql(None, entree=f)


def verifier_tout(serveur, cli, schema, livres):
    fautes = []
    code, _, erreurs = serveur.sql(f"CREATE DATABASE {BASE} CHARACTER SET utf8mb4", base=None)
    with open(schema, "rb") as f:
        code, _, erreurs = serveur.sql(None, entree=f)
    if code:
        return [f"le schéma ne se charge pas : {erreurs}"]
    for epa, ged in livres:
        avant = derniers_numeros(serveur)
        nombres = exporter(cli, epa)
        script = epa[:-3] + "sql"
        code, _, erreurs = charger(serveur, script)
        if code:
            fautes.append(f"{os.path.basename(script)} ne se charge pas : {erreurs}")
            continue
        fautes += verifier_livre(serveur, os.path.basename(epa), nombres, avant, ged)
    # Le même livre une seconde fois : refusé (son code est déjà en ligne), et rien ne change.
    avant = derniers_numeros(serveur)
    code, _, erreurs = charger(serveur, livres[0][0][:-3] + "sql")
    if code == 0 or "more than one row" not in erreurs:
        fautes.append(f"un livre déjà en ligne a été rechargé : {erreurs}")
    if derniers_numeros(serveur) != avant or serveur.nombre("SELECT COUNT(*) FROM epa_fichier") != len(livres):
        fautes.append("le chargement refusé a laissé des lignes")
    return fautes


def main():
    cli, dossier, schema, generateur, fichiers = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4], sys.argv[5:]
    if not (programme("mariadbd") and programme("mariadb-install-db") and programme("mariadb")):
        if os.environ.get("CI") == "true":
            print("MariaDB absent alors que CI=true")
            return 1
        print("MariaDB absent : test sauté")
        return SAUTE
    shutil.rmtree(dossier, ignore_errors=True)
    os.makedirs(dossier)
    livres = []
    for i, f in enumerate(fichiers):
        ged = os.path.join(dossier, f"F{24 + 30 * i:02d}{i + 1:03d}-Livre_{i + 1}.ged")
        if f == "reel-10000" and os.path.exists(DEJA_GENERE):
            shutil.copyfile(DEJA_GENERE, ged)
        elif f == "reel-10000":
            if not os.path.exists(generateur):
                print(f"{generateur} absent : le livre de 10 000 personnes est sauté")
                if os.environ.get("CI") == "true":
                    return 1
                continue
            subprocess.run([sys.executable, generateur, "--persons", "10000", "--seed", "1", "--out", ged],
                           check=True, capture_output=True)
        else:
            shutil.copyfile(f, ged)
        livres.append((ged[:-3] + "EPA", ged))
    # Court et à soi : la longueur d'un chemin de socket est bornée.
    temporaire = tempfile.mkdtemp(prefix="arbolix-mariadb-")
    serveur = None
    try:
        serveur = Serveur(temporaire)
        fautes = verifier_tout(serveur, cli, schema, livres)
    finally:
        if serveur:
            serveur.arreter()
        shutil.rmtree(temporaire, ignore_errors=True)
    print("\n".join(fautes))
    return 1 if fautes else 0


if __name__ == "__main__":
    sys.exit(main())
