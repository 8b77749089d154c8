#!/usr/bin/env python3
"""Le paquet email de Python lit les messages .eml d'Arbolix comme un programme de courrier :
multipart/mixed, deux parties, le texte d'accueil puis la pièce jointe sous le nom du fichier,
dont les octets sont ceux du fichier GEDCOM. Essaie un fichier en CR LF (passé en 8 bits), le
même en LF et un fichier UTF-16 (passés en base64), sous un nom accentué.

Usage : mel.py ARBOLIX-CLI DOSSIER FICHIER.ged [FICHIER.ged...] ; un fichier absent est passé.
Sort avec 77 (test sauté) quand le paquet email manque, sauf quand CI=true.
"""
import os
import shutil
import subprocess
import sys

SAUTE = 77


def lire_message(chemin):
    import email
    import email.policy
    with open(chemin, "rb") as f:
        return email.message_from_bytes(f.read(), policy=email.policy.default)


def verifier(cli, dossier, source, nom):
    copie = os.path.join(dossier, nom)
    shutil.copyfile(source, copie)
    eml = os.path.join(dossier, nom + ".eml")
    r = subprocess.run([cli, "mel", copie, eml], capture_output=True, timeout=60)
    if r.returncode != 0:
        return ["%s : arbolix-cli mel rend %d : %s" % (nom, r.returncode, r.stderr.decode(errors="replace"))]
    message = lire_message(eml)
    fautes = []
    if message.get_content_type() != "multipart/mixed":
        fautes.append("%s : type %s" % (nom, message.get_content_type()))
    parties = message.get_payload()
    if not isinstance(parties, list) or len(parties) != 2:
        return fautes + ["%s : %s parties au lieu de 2" % (nom, len(parties) if isinstance(parties, list) else 0)]
    if "veuillez trouver ci-joint un fichier Gedcom." not in parties[0].get_content():
        fautes.append("%s : le texte d'accueil manque" % nom)
    if parties[1].get_filename() != nom:
        fautes.append("%s : pièce jointe nommée %r" % (nom, parties[1].get_filename()))
    with open(source, "rb") as f:
        attendu = f.read()
    recu = parties[1].get_payload(decode=True)
    if recu != attendu:
        fautes.append("%s : %d octets reçus, %d attendus, premier écart à l'octet %d" % (
            nom, len(recu or b""), len(attendu),
            next((i for i, (a, b) in enumerate(zip(recu or b"", attendu)) if a != b), min(len(recu or b""), len(attendu)))))
    if message.defects or any(p.defects for p in parties):
        fautes.append("%s : défauts relevés : %r" % (nom, message.defects + parties[0].defects + parties[1].defects))
    return fautes


def main():
    if len(sys.argv) < 4:
        print(__doc__)
        return 2
    try:
        import email.policy  # noqa: F401
    except ImportError:
        print("paquet email de Python absent")
        return 1 if os.environ.get("CI") == "true" else SAUTE
    cli, dossier, fichiers = sys.argv[1], sys.argv[2], sys.argv[3:]
    shutil.rmtree(dossier, ignore_errors=True)
    os.makedirs(dossier)
    fautes = []
    essais = 0
    for i, source in enumerate(fichiers):
        if not os.path.exists(source):
            print("absent, passé :", source)
            continue
        fautes += verifier(cli, dossier, source, "arbre %d é.ged" % i)
        essais += 1
        with open(source, "rb") as f:
            octets = f.read()
        if b"\r\n" in octets:
            lf = os.path.join(dossier, "lf-%d.ged" % i)
            with open(lf, "wb") as f:
                f.write(octets.replace(b"\r\n", b"\n"))
            fautes += verifier(cli, dossier, lf, "arbre-lf-%d.ged" % i)
    for f in fautes:
        print(f)
    if essais == 0:
        print("aucun fichier à essayer")
        return 1
    return 1 if fautes else 0


if __name__ == "__main__":
    sys.exit(main())
