#!/usr/bin/env python3
# Écrit src/gedcom/repli_1252_table.inc : pour chaque caractère Unicode que la page 1252
# ne contient pas, sa lettre de base (décomposition canonique) ou, à défaut, sa forme de
# compatibilité quand elle tient dans la page 1252 ; puis quelques lettres sans
# décomposition (ł, đ, ı...) et signes usuels. Les autres caractères deviennent « ? » à la
# lecture et ne figurent pas ici. S'ajoutent les compositions « lettre 1252 + marque
# combinante » qui donnent une lettre de la page 1252 (e + U+0301 donne é).
# À relancer si l'on change la règle ; le fichier produit est versionné.
import pathlib
import unicodedata as u

SORTIE = pathlib.Path(__file__).resolve().parent.parent / "src/gedcom/repli_1252_table.inc"

# Lettres et signes que ni la décomposition canonique ni celle de compatibilité ne ramènent à la page 1252.
A_LA_MAIN = {
    "ł": "l", "Ł": "L", "đ": "d", "Đ": "D", "ħ": "h", "Ħ": "H", "ı": "i", "ĸ": "k",
    "ŋ": "n", "Ŋ": "N", "ŧ": "t", "Ŧ": "T", "ƀ": "b", "Ɓ": "B", "ɓ": "b", "ƈ": "c",
    "Ƈ": "C", "ƌ": "d", "Ƌ": "D", "ɗ": "d", "Ɗ": "D", "ǥ": "g", "Ǥ": "G", "ɨ": "i",
    "Ɨ": "I", "ʉ": "u", "Ʉ": "U", "ə": "e", "Ə": "E", "ǝ": "e", "Ǝ": "E", "ɛ": "e",
    "Ɛ": "E", "ɔ": "o", "Ɔ": "O", "ƙ": "k", "Ƙ": "K", "ƴ": "y", "Ƴ": "Y", "ȥ": "z",
    "Ȥ": "Z", "ƶ": "z", "Ƶ": "Z", "ɲ": "n", "Ɲ": "N", "ȼ": "c", "Ȼ": "C", "ɇ": "e",
    "Ɇ": "E", "ɉ": "j", "Ɉ": "J", "ƚ": "l", "Ƚ": "L", "ɫ": "l", "ⱥ": "a", "Ⱥ": "A",
    "ⱦ": "t", "Ⱦ": "T", "ɍ": "r", "Ɍ": "R", "ɏ": "y", "Ɏ": "Y",
    "\u2010": "-", "\u2011": "-", "\u2012": "-", "\u2015": "\u2014", "\u2212": "-",
    "\u2043": "-", "\u2032": "'", "\u2033": '"', "\u2035": "`", "\u02b9": "'",
    "\u02ba": '"', "\u02bb": "\u2018", "\u02bc": "\u2019", "\u02bd": "\u2018",
    "\u02be": "\u2019", "\u02bf": "\u2018", "\u02c8": "'", "\u02ca": "\u00b4", "\u02cb": "`", "\u2044": "/", "\u2215": "/",
    "\u201b": "\u2018", "\u201f": "\u201c", "\u2027": "\u00b7", "\u2117": "(P)",
    "\u266d": "b", "\u266f": "#", "\u200b": "", "\u200c": "", "\u200d": "",
    "\u2060": "", "\ufeff": "",
}

PLAGES = [(0x80, 0x2C00), (0x2C60, 0x2C80), (0xFB00, 0xFB50), (0xFF00, 0xFFF0)]


def page1252(texte):
    try:
        return texte.encode("cp1252")
    except UnicodeEncodeError:
        return None


def repli(c):
    if c in A_LA_MAIN:
        return A_LA_MAIN[c]
    d = u.normalize("NFD", c)
    if d != c and not u.combining(d[0]) and page1252(d[0]):
        return d[0]
    k = u.normalize("NFKD", c)
    lettres = "".join(x for x in k if not u.combining(x))
    if k != c and lettres and page1252(lettres) and len(page1252(lettres)) <= 3:
        return lettres
    return None


def litteral(octets):
    # Un échappement \x se coupe du caractère suivant, qui pourrait passer pour un chiffre hexadécimal.
    morceaux = ['"\\x%02X"' % b if b >= 0x80 or b < 0x20 or b in b'"\\' else '"%s"' % chr(b) for b in octets]
    return " ".join(morceaux) if morceaux else '""'


def main():
    replis = []
    for debut, fin in PLAGES:
        for cp in range(debut, fin):
            c = chr(cp)
            if page1252(c) is not None or u.combining(c) or u.category(c) in ("Cn", "Cs", "Co"):
                continue
            r = repli(c)
            if r is not None and r != c:
                replis.append((cp, page1252(r)))
    compositions = []
    for octet in range(0x80, 0x100):
        try:
            c = bytes([octet]).decode("cp1252")
        except UnicodeDecodeError:
            continue
        d = u.normalize("NFD", c)
        if len(d) == 2 and page1252(d[0]):
            compositions.append((page1252(d[0])[0], ord(d[1]), octet))
    compositions.sort()
    lignes = ["// Produit par scripts/repli_1252.py : ne pas modifier à la main.", "",
              "// Caractère absent de la page 1252 -> son repli, par point de code croissant."]
    lignes.append("constexpr Repli kReplis[] = {")
    for cp, r in replis:
        lignes.append("    {0x%04X, %s}," % (cp, litteral(r)))
    lignes.append("};")
    lignes.append("")
    lignes.append("// Lettre 1252 + marque combinante -> lettre 1252, par lettre puis marque croissantes.")
    lignes.append("constexpr Composition kCompositions[] = {")
    for base, marque, octet in compositions:
        lignes.append("    {0x%02X, 0x%04X, 0x%02X}," % (base, marque, octet))
    lignes.append("};")
    SORTIE.write_text("\n".join(lignes) + "\n", encoding="utf-8")
    print(f"{SORTIE} : {len(replis)} replis, {len(compositions)} compositions")


if __name__ == "__main__":
    main()
