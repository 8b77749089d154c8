#!/usr/bin/env python3
"""Tables de largeurs des polices standard du PDF, pour src/reports/pdf_largeurs.inc.

Les chasses (millièmes de cadratin) sont les métriques Adobe que groff range dans
font/devps ; l'ordre des glyphes est celui de WinAnsiEncoding, qui suit le code page 1252.
Usage : scripts/largeurs_pdf.py /usr/share/groff/*/font/devps > src/reports/pdf_largeurs.inc
"""
import sys
from pathlib import Path

WINANSI = (
    "space exclam quotedbl numbersign dollar percent ampersand quotesingle parenleft parenright "
    "asterisk plus comma hyphen period slash zero one two three four five six seven eight nine "
    "colon semicolon less equal greater question at A B C D E F G H I J K L M N O P Q R S T U V W "
    "X Y Z bracketleft backslash bracketright asciicircum underscore grave a b c d e f g h i j k l "
    "m n o p q r s t u v w x y z braceleft bar braceright asciitilde - "
    "Euro - quotesinglbase florin quotedblbase ellipsis dagger daggerdbl circumflex perthousand "
    "Scaron guilsinglleft OE - Zcaron - - quoteleft quoteright quotedblleft quotedblright bullet "
    "endash emdash tilde trademark scaron guilsinglright oe - zcaron Ydieresis "
    "space exclamdown cent sterling currency yen brokenbar section dieresis copyright ordfeminine "
    "guillemotleft logicalnot hyphen registered macron degree plusminus twosuperior threesuperior "
    "acute mu paragraph periodcentered cedilla onesuperior ordmasculine guillemotright onequarter "
    "onehalf threequarters questiondown Agrave Aacute Acircumflex Atilde Adieresis Aring AE "
    "Ccedilla Egrave Eacute Ecircumflex Edieresis Igrave Iacute Icircumflex Idieresis Eth Ntilde "
    "Ograve Oacute Ocircumflex Otilde Odieresis multiply Oslash Ugrave Uacute Ucircumflex "
    "Udieresis Yacute Thorn germandbls agrave aacute acircumflex atilde adieresis aring ae "
    "ccedilla egrave eacute ecircumflex edieresis igrave iacute icircumflex idieresis eth ntilde "
    "ograve oacute ocircumflex otilde odieresis divide oslash ugrave uacute ucircumflex udieresis "
    "yacute thorn ydieresis"
).split()
assert len(WINANSI) == 224

POLICES = [("kLargeursTimesRoman", "TR"), ("kLargeursTimesBold", "TB"),
           ("kLargeursHelvetica", "HR"), ("kLargeursHelveticaBold", "HB")]


def chasses(fichier):
    largeurs, dans = {}, False
    for ligne in fichier.read_text(encoding="latin-1").splitlines():
        if ligne.startswith("charset"):
            dans = True
            continue
        champs = ligne.split("\t")
        if dans and len(champs) >= 5:
            largeurs[champs[4]] = int(champs[1].split(",")[0])
    return largeurs


def main():
    dossier = Path(sys.argv[1])
    print("// Produit par scripts/largeurs_pdf.py : chasses en millièmes de cadratin, octets 32 à 255.")
    for nom, fichier in POLICES:
        l = chasses(dossier / fichier)
        manquants = [g for g in WINANSI if g != "-" and g not in l]
        if manquants:
            sys.exit(f"{fichier} : glyphes absents {manquants}")
        valeurs = [0 if g == "-" else l[g] for g in WINANSI]
        print(f"constexpr std::array<std::uint16_t, 224> {nom}{{")
        for i in range(0, 224, 16):
            print("    " + ", ".join(str(v) for v in valeurs[i:i + 16]) + ",")
        print("};")


main()
