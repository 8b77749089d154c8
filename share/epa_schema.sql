-- Tables de la base des livres de familles, que remplit le script écrit par l'export SQL
-- d'Arbolix (arbolix-cli sql F54123-Saint_Clement.EPA, ou arbolix F54123-Saint_Clement.EPA).
-- MariaDB 10.5 ou plus, InnoDB, utf8mb4. Le script se charge en utf8mb4 :
--   mariadb --default-character-set=utf8mb4 BASE < F54123-Saint_Clement.sql
-- Il numérote personnes, familles et actes à la suite des plus grands numéros déjà là, dans
-- une seule transaction : deux livres ne se chargent pas en même temps.

CREATE TABLE IF NOT EXISTS epa_lieu (
  numlieu INT UNSIGNED NOT NULL AUTO_INCREMENT PRIMARY KEY,
  numpays SMALLINT NOT NULL,          -- lettre du code : A vaut 1
  dept SMALLINT NOT NULL,             -- chiffres 2 et 3 du code
  code VARCHAR(255) NOT NULL,         -- la suite du code
  texte VARCHAR(500) NOT NULL DEFAULT '',
  commentaire VARCHAR(255) NOT NULL DEFAULT '',
  -- Un lieu ne s'ajoute qu'une fois : le script l'insère par INSERT IGNORE.
  UNIQUE KEY lieu_code (numpays, dept, code)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_ci;

CREATE TABLE IF NOT EXISTS epa_fichier (
  numfichier INT UNSIGNED NOT NULL AUTO_INCREMENT PRIMARY KEY,
  codefichier VARCHAR(255) NOT NULL,
  nomfichier VARCHAR(255) NOT NULL DEFAULT '',
  titre VARCHAR(600) NOT NULL DEFAULT '',
  infosfichier MEDIUMTEXT,
  -- 5 : livre en ligne ; le script retrouve ainsi le livre qu'il vient d'ajouter. Un livre
  -- remplacé doit changer de statut avant qu'on charge le nouveau, sinon le chargement échoue.
  numstatut TINYINT NOT NULL DEFAULT 5,
  numlieu INT UNSIGNED NULL,
  nbactes INT NOT NULL DEFAULT 0,
  nbevenements INT NOT NULL DEFAULT 0,
  nbfamis INT NOT NULL DEFAULT 0,
  nbpersos INT NOT NULL DEFAULT 0,
  debut SMALLINT NOT NULL DEFAULT 0,
  fin SMALLINT NOT NULL DEFAULT 0,
  datefichier DATE NULL,
  KEY fichier_code (codefichier, numstatut),
  CONSTRAINT fichier_lieu FOREIGN KEY (numlieu) REFERENCES epa_lieu (numlieu)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_ci;

CREATE TABLE IF NOT EXISTS epa_famille (
  numfami INT UNSIGNED NOT NULL PRIMARY KEY,
  nummari INT UNSIGNED NOT NULL DEFAULT 0,      -- 0 : pas de mari au livre
  numepouse INT UNSIGNED NOT NULL DEFAULT 0,
  KEY famille_mari (nummari),
  KEY famille_epouse (numepouse)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_ci;

CREATE TABLE IF NOT EXISTS epa_personne (
  numperso INT UNSIGNED NOT NULL PRIMARY KEY,
  numfichier INT UNSIGNED NOT NULL,
  numorig INT NOT NULL,                         -- le numéro dans le fichier GEDCOM renuméroté
  numparents INT UNSIGNED NOT NULL DEFAULT 0,   -- 0 : parents hors du livre
  nom TEXT NOT NULL,
  nomphon INT UNSIGNED NOT NULL,                -- code phonétique : "D165" donne 68165
  prenoms TEXT NOT NULL,
  sexe CHAR(1) NOT NULL DEFAULT '',
  metier TEXT NOT NULL,
  infos MEDIUMTEXT,
  KEY personne_fichier (numfichier),
  KEY personne_parents (numparents),
  KEY personne_nom (nom(60)),
  KEY personne_phon (nomphon),
  CONSTRAINT personne_fichier FOREIGN KEY (numfichier) REFERENCES epa_fichier (numfichier)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_ci;

-- numtype : 1 naissance, 2 mariage, 3 décès, 4 baptême, 5 sépulture, 6 contrat, 7 divorce.
-- Un acte est d'une personne (numperso) ou d'une famille (numfami).
CREATE TABLE IF NOT EXISTS epa_acte (
  numacte INT UNSIGNED NOT NULL PRIMARY KEY,
  numtype TINYINT UNSIGNED NOT NULL,
  numperso INT UNSIGNED NULL,
  numfami INT UNSIGNED NULL,
  dat TEXT NOT NULL,                            -- la date telle que le fichier la dit
  annee SMALLINT NOT NULL DEFAULT 0,
  datenvers VARCHAR(255) NOT NULL DEFAULT '',   -- clé de tri de la date, aaaa/mm/jj
  daterepu VARCHAR(255) NOT NULL DEFAULT '',
  lieu TEXT NOT NULL,
  infosacte MEDIUMTEXT,
  sourceacte MEDIUMTEXT,
  KEY acte_perso (numperso),
  KEY acte_fami (numfami),
  KEY acte_type_annee (numtype, annee),
  KEY acte_lieu (lieu(60)),
  CONSTRAINT acte_perso FOREIGN KEY (numperso) REFERENCES epa_personne (numperso),
  CONSTRAINT acte_fami FOREIGN KEY (numfami) REFERENCES epa_famille (numfami)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_unicode_ci;
