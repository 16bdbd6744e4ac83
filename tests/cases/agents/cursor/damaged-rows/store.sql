INSERT INTO composerHeaders VALUES
  ('c-null', '7f3a', 1795253400000, 1795262360000, 0, 0, 1, NULL, NULL),
  ('c-cut', '7f3a', 1795253400000, 1795262359000, 0, 0, 1, NULL, '{"name":"x","lastUpd'),
  ('c-list', '7f3a', 1795253400000, 1795262358000, 0, 0, 1, NULL, '[{"name":"x"}]'),
  ('c-types', '7f3a', 1795253400000, 1795262357000, 0, 0, 1, NULL, '{"lastUpdatedAt":"1795262357000","hasBlockingPendingActions":1,"workspaceIdentifier":{"uri":"file:///x"},"name":null}');
INSERT INTO composerHeaders SELECT NULL, workspaceId, createdAt, lastUpdatedAt, 0, 0, 1, NULL, value FROM composerHeaders WHERE composerId = 'c-types';
INSERT INTO composerHeaders VALUES ('c-good', '7f3a', 1795253400000, 1795262356000, 0, 0, 1, NULL, '{"type":"head","name":"Rework the forecast","lastUpdatedAt":1795262356000,"createdAt":1795253400000,"unifiedMode":"agent","contextUsagePercent":31.4,"totalLinesAdded":120,"totalLinesRemoved":4,"filesChangedCount":3,"hasBlockingPendingActions":false,"hasUnreadMessages":true,"isDraft":false,"workspaceIdentifier":{"id":"7f3a","uri":{"$mid":1,"fsPath":"/home/mira/code/weather","external":"file:///home/mira/code/weather","path":"/home/mira/code/weather","scheme":"file"}}}');
