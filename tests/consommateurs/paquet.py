#!/usr/bin/env python3
"""Le paquet Debian tel qu'un généalogiste l'installe : cpack le construit dans l'arbre donné,
lintian n'y trouve aucune erreur, apt-get l'installe, le arbolix-cli installé lit l'exemple
installé, le lanceur, la fiche AppStream et le type de fichier sont acceptés par les outils du
bureau ; sous Xvfb, la ligne Exec du lanceur ouvre l'exemple et F1 ouvre l'aide (un faux
xdg-open note l'adresse). Le paquet est retiré à la fin, même après un échec.

Usage : paquet.py ARBRE-CONSTRUIT DOSSIER-TEMPORAIRE
Sort avec 77 (test sauté) quand un outil ou les droits de root manquent, sauf quand CI=true.
"""
import os
import select
import shlex
import shutil
import subprocess
import sys
import time

SAUTE = 77
PAQUET = "arbolix"
LANCEUR = "/usr/share/applications/fr.arbolix.Arbolix.desktop"
METAINFO = "/usr/share/metainfo/fr.arbolix.Arbolix.metainfo.xml"
EXEMPLE = "/usr/share/arbolix/exemple.ged"
AIDE = "file:///usr/share/arbolix/aide/index.html"
TYPES_GEDCOM = {"text/vnd.familysearch.gedcom", "application/x-gedcom"}
OUTILS = ["cpack", "dpkg-shlibdeps", "lintian", "apt-get", "dpkg-query", "desktop-file-validate",
          "appstreamcli", "xdg-mime", "mimetype"]
OUTILS_FENETRE = ["Xvfb", "xdotool"]
# Lancés depuis un arbre de construction avec AddressSanitizer, les programmes installés en gardent
# l'instrumentation : les fuites de Qt à la sortie ne sont pas les nôtres.
ENV = dict(os.environ, ASAN_OPTIONS="detect_leaks=0", DEBIAN_FRONTEND="noninteractive", LANG="C.UTF-8")


def sauter(raison):
    if os.environ.get("CI") == "true":
        print(f"ÉCHEC : {raison} (CI=true : le test ne peut pas être sauté)")
        sys.exit(1)
    print(f"Sauté : {raison}")
    sys.exit(SAUTE)


def lancer(commande, **options):
    debut = time.monotonic()
    r = subprocess.run(commande, capture_output=True, text=True, errors="replace", env=options.pop("env", ENV),
                       **options)
    texte = shlex.join(commande)
    texte = texte if len(texte) < 160 else texte[:150] + " [...]"
    print(f"$ {texte}  ({time.monotonic() - debut:.1f} s, code {r.returncode})")
    return r


def exiger(condition, message, r=None):
    if not condition:
        print(f"ÉCHEC : {message}")
        if r is not None:
            print(r.stdout[-3000:], r.stderr[-3000:], sep="\n")
        raise SystemExit(1)


def installe():
    r = subprocess.run(["dpkg-query", "-W", "-f=${Status}", PAQUET], capture_output=True, text=True)
    return "install ok installed" in r.stdout


def construire(arbre, dossier):
    r = lancer(["cpack", "-G", "DEB", "--config", os.path.join(arbre, "CPackConfig.cmake"), "-B", dossier])
    exiger(r.returncode == 0, "cpack n'a pas construit le paquet", r)
    debs = [f for f in os.listdir(dossier) if f.startswith(PAQUET + "_") and f.endswith(".deb")]
    exiger(len(debs) == 1, f"un seul paquet attendu dans {dossier}, trouvé {debs}")
    return debs[0]


def lancer_lintian(dossier, deb):
    """lintian ne lit que le paquet : il tourne pendant l'installation et les essais."""
    commande = ["lintian", "--fail-on", "error", "--tag-display-limit", "0", deb]
    return commande, time.monotonic(), subprocess.Popen(commande, cwd=dossier, env=ENV, text=True, errors="replace",
                                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def verifier_lintian(lintian):
    commande, debut, p = lintian
    sortie, erreurs = p.communicate()
    print(f"$ {shlex.join(commande)}  ({time.monotonic() - debut:.1f} s, code {p.returncode})")
    lignes = [l for l in sortie.splitlines() if l[:2] in ("E:", "W:")]
    print("\n".join(lignes) or "lintian : ni erreur ni avertissement")
    exiger(p.returncode == 0 and not any(l.startswith("E:") for l in lignes),
           "lintian signale des erreurs :\n" + sortie + erreurs)


def verifier_installe(dossier):
    r = lancer(["/usr/bin/arbolix-cli", "lire", EXEMPLE])
    exiger(r.returncode == 0 and "Lu : 24 personnes, 8 familles" in r.stdout,
           "le arbolix-cli installé ne lit pas l'exemple installé", r)
    r = lancer(["desktop-file-validate", LANCEUR])
    exiger(r.returncode == 0 and not r.stdout.strip(), "desktop-file-validate refuse le lanceur", r)
    r = lancer(["appstreamcli", "validate", "--no-net", METAINFO])
    exiger(r.returncode == 0, "appstreamcli refuse la fiche AppStream", r)

    # Le type vient de la base de shared-mime-info : l'extension en minuscules ou en capitales,
    # la marque d'ordre d'octets UTF-8 que seul notre fichier de types reconnaît, le .TM binaire.
    essais = {"famille.ged": (open(EXEMPLE, "rb").read(), TYPES_GEDCOM),
              "FAMILLE.GED": (open(EXEMPLE, "rb").read(), TYPES_GEDCOM),
              "sans-extension": (b"\xef\xbb\xbf0 HEAD\r\n1 CHAR UTF-8\r\n0 TRLR\r\n", {"text/vnd.familysearch.gedcom"}),
              "A54123.TM": (b"\x00\x00\x00\x00", {"application/x-arbolix-tmao"})}
    for nom, (contenu, attendus) in essais.items():
        chemin = os.path.join(dossier, nom)
        with open(chemin, "wb") as f:
            f.write(contenu)
        r = lancer(["xdg-mime", "query", "filetype", chemin])
        exiger(r.stdout.strip() in attendus, f"{nom} : type {r.stdout.strip()!r}, attendu {sorted(attendus)}", r)
    r = lancer(["xdg-mime", "query", "default", "text/vnd.familysearch.gedcom"])
    exiger(r.stdout.strip() == os.path.basename(LANCEUR), "le lanceur n'est pas le programme des fichiers GEDCOM", r)


SCENARIO = r"""
attendre() {  # le premier identifiant de fenêtre dont le titre contient $1, attendu 20 s au plus
  for i in $(seq 200); do
    w=$(xdotool search --name "$1" 2>/dev/null | head -1)
    [ -n "$w" ] && { echo "$w"; return 0; }
    sleep 0.1
  done
  echo "fenêtre « $1 » jamais vue" >&2; return 1
}
eval "$EXEC &"
programme=$!
trap 'kill $programme 2>/dev/null' EXIT
boite=$(attendre "Ouvrir un fichier Gedcom")
xdotool windowfocus --sync "$boite" key Return
fiche=$(attendre "exemple.ged")
xdotool windowfocus --sync "$fiche" key F1
for i in $(seq 200); do [ -s "$ARBOLIX_OUVERTS" ] && exit 0; sleep 0.1; done
echo "F1 n'a rien ouvert" >&2; exit 1
"""


def serveur_x(dossier):
    """Un Xvfb à soi, qui donne son numéro d'écran une fois prêt (-displayfd) : xvfb-run -a, sur
    une machine chargée, laissait parfois le programme chercher un écran pas encore ouvert."""
    lecture, ecriture = os.pipe()
    journal = os.path.join(dossier, "xvfb.log")
    with open(journal, "w") as j:
        serveur = subprocess.Popen(["Xvfb", "-displayfd", str(ecriture), "-screen", "0", "1280x1024x24",
                                    "-nolisten", "tcp"], pass_fds=(ecriture,), stdout=j, stderr=subprocess.STDOUT)
    os.close(ecriture)
    # Le numéro suivi d'une fin de ligne ; le tube reste ouvert tant que le serveur vit, sans quoi
    # une écriture tardive le tuerait.
    numero = b""
    fin = time.monotonic() + 30
    while not numero.endswith(b"\n") and time.monotonic() < fin:
        pret, _, _ = select.select([lecture], [], [], max(0.0, fin - time.monotonic()))
        morceau = os.read(lecture, 32) if pret else b""
        if not morceau:
            break
        numero += morceau
    if not numero.endswith(b"\n"):
        serveur.kill()
        serveur.wait()
        os.close(lecture)
        exiger(False, "Xvfb ne démarre pas : " + open(journal, errors="replace").read()[-2000:])
    return serveur, lecture, ":" + numero.decode().strip()


def verifier_fenetre(dossier):
    if not os.path.exists("/usr/bin/arbolix"):
        print("Paquet sans fenêtre (ARBOLIX_GUI=OFF) : pas d'essai sous Xvfb")
        return
    exec_ = next(l[5:].strip() for l in open(LANCEUR, encoding="utf-8") if l.startswith("Exec="))
    exiger("%f" in exec_, f"la ligne Exec ne reçoit pas le fichier : {exec_}")
    faux = os.path.join(dossier, "faux")
    os.makedirs(faux, exist_ok=True)
    with open(os.path.join(faux, "xdg-open"), "w") as f:
        f.write('#!/bin/sh\nprintf "%s\\n" "$*" >> "$ARBOLIX_OUVERTS"\n')
    os.chmod(os.path.join(faux, "xdg-open"), 0o755)
    ouverts = os.path.join(dossier, "ouverts")
    maison = os.path.join(dossier, "maison")
    os.makedirs(maison, exist_ok=True)
    env = {k: v for k, v in ENV.items() if not k.startswith(("XDG_", "QT_", "DISPLAY", "WAYLAND"))}
    env.update(HOME=maison, PATH=faux + os.pathsep + env["PATH"], ARBOLIX_OUVERTS=ouverts,
               EXEC=exec_.replace("%f", shlex.quote(EXEMPLE)))
    serveur, tube, ecran = serveur_x(dossier)
    try:
        r = lancer(["bash", "-c", SCENARIO], env=dict(env, DISPLAY=ecran), timeout=90)
    finally:
        serveur.terminate()
        serveur.wait()
        os.close(tube)
    exiger(r.returncode == 0, "sous Xvfb, le lanceur n'ouvre pas l'exemple ou F1 n'ouvre pas l'aide", r)
    adresses = open(ouverts).read().split()
    exiger(adresses == [AIDE], f"F1 a ouvert {adresses}, attendu {AIDE}")
    # Installé, le programme range ses réglages chez l'utilisateur, jamais dans /usr/bin.
    exiger(os.path.exists(os.path.join(maison, ".config", "arbolix", "arbolix.ini")),
           "les réglages ne sont pas dans ~/.config/arbolix")
    exiger(not os.path.exists("/usr/bin/arbolix.ini"), "le programme installé a écrit /usr/bin/arbolix.ini")


def main():
    arbre, dossier = sys.argv[1], os.path.abspath(sys.argv[2])
    manquants = [o for o in OUTILS + OUTILS_FENETRE if not shutil.which(o)]
    if manquants:
        sauter("programmes absents : " + " ".join(manquants) + " (scripts/paquets.sh consommateurs)")
    if os.geteuid() != 0:
        sauter("installer un paquet demande les droits de root")
    if installe():
        sauter(f"un paquet {PAQUET} est déjà installé sur cette machine : le test ne le remplace pas")
    shutil.rmtree(dossier, ignore_errors=True)
    os.makedirs(dossier)
    debut = time.monotonic()
    deb = construire(arbre, dossier)
    lintian = lancer_lintian(dossier, deb)
    try:
        r = lancer(["apt-get", "install", "-y", "--no-install-recommends", "./" + deb], cwd=dossier)
        exiger(r.returncode == 0 and installe(), "apt-get n'a pas installé le paquet", r)
        verifier_installe(dossier)
        verifier_fenetre(dossier)
        verifier_lintian(lintian)
    finally:
        if lintian[2].poll() is None:
            lintian[2].kill()
        if installe():
            r = lancer(["apt-get", "purge", "-y", PAQUET])
            print("Paquet retiré" if r.returncode == 0 else r.stderr)
    exiger(not installe() and not os.path.exists("/usr/bin/arbolix-cli") and not os.path.exists("/usr/share/arbolix"),
           "le paquet n'a pas été retiré proprement")
    print(f"Paquet {deb} : construit, installé, vérifié et retiré en {time.monotonic() - debut:.0f} s")


if __name__ == "__main__":
    main()
