#!/usr/bin/env python3
"""Temps de chargement d'un script de l'export SQL dans un serveur MariaDB privé (celui du test
consommateur : dossier temporaire, sans réseau), et les lignes chargées.

Usage : bench/charger_mariadb.py [SCRIPT.sql] ; par défaut /tmp/F00001-Banc.sql de bench_export_sql.
"""
import os
import shutil
import sys
import tempfile
import time

RACINE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(RACINE, "tests", "consommateurs"))
import mariadb  # noqa: E402


def main():
    script = sys.argv[1] if len(sys.argv) > 1 else "/tmp/F00001-Banc.sql"
    temporaire = tempfile.mkdtemp(prefix="arbolix-banc-mariadb-")
    serveur = None
    try:
        debut = time.monotonic()
        # Assez de mémoire pour que les index d'un million de personnes y tiennent.
        serveur = mariadb.Serveur(temporaire, memoire="1G")
        print(f"serveur prêt : {time.monotonic() - debut:.1f} s")
        serveur.sql(f"CREATE DATABASE {mariadb.BASE} CHARACTER SET utf8mb4", base=None)
        with open(os.path.join(RACINE, "share", "epa_schema.sql"), "rb") as f:
            serveur.sql(None, entree=f)
        debut = time.monotonic()
        with open(script, "rb") as f:
            code, _, erreurs = serveur.sql(None, entree=f)
        duree = time.monotonic() - debut
        if code:
            print(f"échec du chargement : {erreurs}")
            return 1
        mo = os.path.getsize(script) / (1 << 20)
        print(f"chargement de {script} ({mo:.1f} Mo) : {duree:.1f} s")
        for table in ("epa_personne", "epa_famille", "epa_acte"):
            print(f"  {table} : {serveur.nombre(f'SELECT COUNT(*) FROM {table}')} lignes")
    finally:
        if serveur:
            serveur.arreter()
        shutil.rmtree(temporaire, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
