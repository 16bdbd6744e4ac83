CREATE TABLE conversation_summaries (
  conversation_id TEXT PRIMARY KEY, title TEXT, preview TEXT, step_count INTEGER, last_modified_time DATETIME,
  workspace_uris TEXT, status TEXT, source INTEGER, project_id TEXT, agent_name TEXT, parent_conversation_id TEXT,
  nesting_depth INTEGER, battle_id TEXT, winning_conversation_id TEXT, not_fully_idle NUMERIC, killed NUMERIC,
  last_user_input_time DATETIME, last_user_input_step_index INTEGER, app_data_dir TEXT);
INSERT INTO conversation_summaries (conversation_id, last_modified_time) VALUES (NULL, '2026-11-21 11:59:59+00:00');
INSERT INTO conversation_summaries VALUES (X'FF41', X'C328', NULL, 'many', '2026-11-21 11:59:58Z', X'FF', X'00', 'x', NULL, NULL, NULL, NULL, NULL, NULL, 'no', '', NULL, NULL, NULL);
