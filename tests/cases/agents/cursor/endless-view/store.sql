CREATE VIEW composerHeaders AS
  WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)
  SELECT i AS composerId, '{}' AS value, 1 AS isArchived, 0 AS isSubagent, 9999999999999 AS lastUpdatedAt FROM n;
