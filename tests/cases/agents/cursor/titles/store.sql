CREATE TABLE ItemTable (key TEXT UNIQUE ON CONFLICT REPLACE, value BLOB);
CREATE TABLE cursorDiskKV (key TEXT UNIQUE ON CONFLICT REPLACE, value BLOB);
CREATE TABLE composerHeaders (
  composerId TEXT PRIMARY KEY, workspaceId TEXT, createdAt INTEGER, lastUpdatedAt INTEGER,
  isArchived INTEGER, isSubagent INTEGER, recency INTEGER, checkpointAt INTEGER, value TEXT);
INSERT INTO composerHeaders VALUES ('c-1', '7f3a', 1795253400000, 1795262360000, 0, 0, 1, NULL,
  '{"type":"head","name":"","lastUpdatedAt":1795262360000,"createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false,"workspaceIdentifier":{"id":"7f3a","uri":{"$mid":1,"fsPath":"/home/mira/code/weather","external":"file:///home/mira/code/weather","path":"/home/mira/code/weather","scheme":"file"}}}');
INSERT INTO composerHeaders VALUES ('c-2', '7f3a', 1795253400000, 1795262359000, 0, 0, 1, NULL,
  '{"type":"head","name":"","lastUpdatedAt":1795262359000,"createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false}');
INSERT INTO composerHeaders VALUES ('c-3', '7f3a', 1795253400000, 1795262358000, 0, 0, 1, NULL,
  '{"type":"head","name":7,"lastUpdatedAt":1795262358000,"createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false,"workspaceIdentifier":{"uri":{"fsPath":""}}}');
INSERT INTO composerHeaders VALUES ('c-4', '7f3a', 1795253400000, 1795262357000, 0, 0, 1, NULL,
  '{"type":"head","name":"It''s “done” ☃\nreally","lastUpdatedAt":1795262357000,"createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false,"workspaceIdentifier":{"id":"7f3a","uri":{"$mid":1,"fsPath":"/home/mira/code/weather","external":"file:///home/mira/code/weather","path":"/home/mira/code/weather","scheme":"file"}}}');
