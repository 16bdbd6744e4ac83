CREATE TABLE ItemTable (key TEXT UNIQUE ON CONFLICT REPLACE, value BLOB);
CREATE TABLE cursorDiskKV (key TEXT UNIQUE ON CONFLICT REPLACE, value BLOB);
CREATE TABLE composerHeaders (
  composerId TEXT PRIMARY KEY, workspaceId TEXT, createdAt INTEGER, lastUpdatedAt INTEGER,
  isArchived INTEGER, isSubagent INTEGER, recency INTEGER, checkpointAt INTEGER, value TEXT);
INSERT INTO composerHeaders VALUES ('c-1', '7f3a', 1795253400000, 1795262340000, 0, 0, 1, NULL,
  '{"type":"head","name":"Rework the forecast","createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false,"workspaceIdentifier":{"id":"7f3a","uri":{"$mid":1,"fsPath":"/home/mira/code/weather","external":"file:///home/mira/code/weather","path":"/home/mira/code/weather","scheme":"file"}}}');
