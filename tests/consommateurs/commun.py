"""Ce que partagent les tests qui font relire nos sorties par de vrais programmes.

Un programme absent fait sauter le test (code 77), sauf quand CI=true : là il doit échouer,
puisque scripts/paquets.sh consommateurs l'a installé.
"""
import os
import shutil
import subprocess
import sys

SAUTE = 77


def exiger(*programmes):
    """Sort du test (sauté, ou échec en CI) s'il manque un des programmes."""
    manquants = [p for p in programmes if shutil.which(p) is None]
    if not manquants:
        return
    if os.environ.get("CI") == "true":
        print("absent alors que CI=true : " + ", ".join(manquants))
        sys.exit(1)
    print("absent, test sauté : " + ", ".join(manquants))
    sys.exit(SAUTE)


def echouer(message):
    print("ÉCHEC : " + message)
    sys.exit(1)


def bureautique_en_pdf(fichiers, dossier):
    """Convertit des documents (RTF...) en PDF par LibreOffice, en un seul lancement.

    Un profil privé dans le dossier du test : pas de course avec un LibreOffice ouvert
    ni avec un autre test. Rend les chemins des PDF, dans l'ordre des fichiers.
    """
    exiger("soffice")
    os.makedirs(dossier, exist_ok=True)
    profil = "file://" + os.path.abspath(os.path.join(dossier, "profil-libreoffice"))
    r = subprocess.run(["soffice", "-env:UserInstallation=" + profil, "--headless", "--norestore",
                        "--convert-to", "pdf", "--outdir", dossier, *fichiers],
                       capture_output=True, text=True, errors="replace", timeout=240,
                       env=dict(os.environ, HOME=os.path.abspath(dossier)))
    pdfs = [os.path.join(dossier, os.path.splitext(os.path.basename(f))[0] + ".pdf") for f in fichiers]
    absents = [p for p in pdfs if not os.path.exists(p)]
    if r.returncode != 0 or absents:
        echouer(f"LibreOffice n'a pas converti {absents or fichiers} :\n{r.stdout}\n{r.stderr}")
    return pdfs


def pdf_en_texte(pdf, mise_en_page=False):
    """Le texte d'un PDF tel que pdftotext le lit (UTF-8) ; avec mise_en_page, dans l'ordre des lignes
    de la page (colonnes côte à côte, notes de bas de page en dernier). Les pages sont séparées par \\f."""
    exiger("pdftotext")
    options = ["-layout"] if mise_en_page else []
    return subprocess.run(["pdftotext", *options, "-enc", "UTF-8", pdf, "-"], check=True,
                          capture_output=True).stdout.decode()


def pdf_infos(pdf):
    """Les champs de pdfinfo (Title, Author, Pages...) dans un dictionnaire."""
    exiger("pdfinfo")
    sortie = subprocess.run(["pdfinfo", pdf], check=True, capture_output=True).stdout.decode(errors="replace")
    infos = {}
    for ligne in sortie.splitlines():
        cle, _, valeur = ligne.partition(":")
        infos[cle.strip()] = valeur.strip()
    return infos


def chromium():
    """Le nom du Chromium de la machine (Debian : chromium)."""
    for nom in ("chromium", "chromium-browser", "google-chrome"):
        if shutil.which(nom):
            return nom
    exiger("chromium")


def chromium_lancer(url, *options, dossier):
    """Chromium sans tête, en root sans bac à sable, profil privé ; rend sa sortie standard."""
    commande = [chromium(), "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                "--user-data-dir=" + os.path.abspath(os.path.join(dossier, "profil-chromium")), *options, url]
    r = subprocess.run(commande, capture_output=True, timeout=120, env=dict(os.environ, HOME=os.path.abspath(dossier)))
    if r.returncode != 0:
        echouer(f"Chromium a échoué sur {url} : {r.stderr.decode(errors='replace')[-2000:]}")
    return r.stdout.decode(errors="replace")


def xml_bien_forme(fichier):
    """xmllint --noout : le fichier est du XML bien formé, sinon le test échoue avec son message."""
    exiger("xmllint")
    r = subprocess.run(["xmllint", "--noout", fichier], capture_output=True, text=True, errors="replace")
    if r.returncode != 0:
        echouer(f"xmllint refuse {fichier} :\n{r.stderr[-2000:]}")


def svg_en_png(svg, png):
    """Rend un SVG en PNG par rsvg-convert, fond transparent."""
    exiger("rsvg-convert")
    r = subprocess.run(["rsvg-convert", "-o", png, svg], capture_output=True, text=True, errors="replace")
    if r.returncode != 0 or not os.path.exists(png):
        echouer(f"rsvg-convert ne rend pas {svg} :\n{r.stderr[-2000:]}")


def part_encree_png(png):
    """La part des octets d'image non nuls d'un PNG sur fond transparent (0 : image vide).

    Les filtres du PNG prédisent à partir des octets voisins : une image toute à zéro reste à
    zéro une fois filtrée, et un seul pixel encré laisse un octet non nul. Il suffit donc de
    décompresser, sans défaire les filtres, en sautant l'octet de filtre de chaque rang.
    """
    import struct
    import zlib
    with open(png, "rb") as f:
        donnees = f.read()
    if donnees[:8] != b"\x89PNG\r\n\x1a\n":
        echouer(f"{png} n'est pas un PNG")
    pos, idat, largeur, hauteur, profondeur, couleur = 8, b"", 0, 0, 8, 6
    while pos < len(donnees):
        longueur, genre = struct.unpack(">I4s", donnees[pos:pos + 8])
        corps = donnees[pos + 8:pos + 8 + longueur]
        if genre == b"IHDR":
            largeur, hauteur, profondeur, couleur = struct.unpack(">IIBB", corps[:10])
        elif genre == b"IDAT":
            idat += corps
        pos += 12 + longueur
    canaux = {0: 1, 2: 3, 4: 2, 6: 4}.get(couleur, 4)
    rang = 1 + largeur * canaux * profondeur // 8
    brut = zlib.decompress(idat)
    encres = sum(1 for i, o in enumerate(brut) if o and i % rang)
    return encres / max(1, len(brut) - hauteur)
