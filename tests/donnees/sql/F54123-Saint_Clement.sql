START TRANSACTION;
SELECT MAX(numacte) INTO @na FROM epa_acte;
SELECT IFNULL(@na, 0) INTO @na;
SELECT MAX(numfami) INTO @nap FROM epa_famille;
SELECT IFNULL(@nap, 0) INTO @nap;
SELECT MAX(numperso) INTO @np FROM epa_personne;
SELECT IFNULL(@np, 0) INTO @np;
INSERT INTO epa_fichier (codefichier, nomfichier, titre, infosfichier) VALUES ('F54123', 'F54123-Saint_Clement.EPA', 'Livre des familles de Saint Clement', '');
SELECT numfichier INTO @nf FROM epa_fichier WHERE codefichier = 'F54123' AND numstatut = 5;
INSERT IGNORE INTO epa_lieu (numpays, dept, code, texte, commentaire) VALUES (6, 54, '123', 'Saint Clement', 'ZZ nouveau lieu');
SELECT numlieu INTO @nl FROM epa_lieu WHERE numpays = 6 AND dept = 54 AND code = '123';
SET FOREIGN_KEY_CHECKS = 0;
INSERT INTO epa_personne (numperso, numfichier, numorig, numparents, nom, nomphon, prenoms, sexe, metier, infos) VALUES (@np + 1, @nf, 1, 0, 'D\'AUBIGNÉ', 68125, 'Jean-Baptiste', 'M', 'Maître d\'école', 'Né sous la République.
https://exemple.fr/aubigne?a=1&b=\'2\''), (@np + 2, @nf, 2, 0, 'Lefèvre', 76160, 'Marie \"Mimi\"', 'F', '', ''), (@np + 3, @nf, 3, @nap + 1, 'D\'AUBIGNÉ', 68125, 'Œillet', 'F', '', ''), (@np + 4, @nf, 4, 0, 'N', 78000, 'Paul', 'M', '', '');
INSERT INTO epa_acte (numacte, numtype, numperso, dat, annee, datenvers, daterepu, lieu, infosacte, sourceacte) VALUES (@na + 1, 1, @np + 1, '03/10/1794', 1794, '1794/10/03', '', 'Saint-Clément', '12/vend/3', ''), (@na + 2, 4, @np + 1, '04/10/1794', 1794, '1794/10/04', '', 'Saint-Clément', '13/vend/03
Parrain : Pierre l\'Aîné', ''), (@na + 3, 3, @np + 1, '02/02/1850', 1850, '1850/02/02', '', 'Lunéville', '', ''), (@na + 4, 5, @np + 1, '04/02/1850', 1850, '1850/02/04', '', 'Lunéville', '', 'Registre C:/archives/1850'), (@na + 5, 1, @np + 2, 'vers 1800', 1800, '1800/0./00', '', 'Nancy', '', ''), (@na + 6, 3, @np + 2, '1880', 1880, '1880/00/00', '', '', '', ''), (@na + 7, 1, @np + 3, '03/03/1830', 1830, '1830/03/03', '', 'Saint-Clément', '', ''), (@na + 8, 1, @np + 4, '', 0, '', '', 'Blâmont', '', '');
INSERT INTO epa_famille (numfami, nummari, numepouse) VALUES (@nap + 1, @np + 1, @np + 2);
INSERT INTO epa_acte (numacte, numtype, numfami, dat, annee, datenvers, daterepu, lieu, infosacte, sourceacte) VALUES (@na + 9, 2, @nap + 1, '15/01/1825', 1825, '1825/01/15', '', 'Nancy', '', ''), (@na + 10, 6, @nap + 1, '10/01/1825', 1825, '1825/01/10', '', 'Nancy', '', ''), (@na + 11, 7, @nap + 1, '1840', 1840, '1840/00/00', '', '', '', '');
UPDATE epa_fichier SET numlieu=@nl, nbactes=7, nbevenements=11, nbfamis=2, nbpersos=4, debut=1794, fin=1830, datefichier='2024-07-14', infosfichier='Relevé des registres de Saint-Clément, l\'an 2024.
Deuxième ligne \"citée\".' WHERE numfichier=@nf;
SET FOREIGN_KEY_CHECKS = 1;
COMMIT;
