CREATE TABLE composerHeaders (composerId TEXT PRIMARY KEY, lastUpdatedAt INTEGER, isArchived INTEGER, value TEXT);
INSERT INTO composerHeaders VALUES ('c-1', 1795262395000, 0, '{}');
