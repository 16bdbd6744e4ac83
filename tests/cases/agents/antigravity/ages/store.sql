CREATE TABLE conversation_summaries (
  conversation_id TEXT PRIMARY KEY, title TEXT, preview TEXT, step_count INTEGER, last_modified_time DATETIME,
  workspace_uris TEXT, status TEXT, source INTEGER, project_id TEXT, agent_name TEXT, parent_conversation_id TEXT,
  nesting_depth INTEGER, battle_id TEXT, winning_conversation_id TEXT, not_fully_idle NUMERIC, killed NUMERIC,
  last_user_input_time DATETIME, last_user_input_step_index INTEGER, app_data_dir TEXT);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-1', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:50:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 1, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-2', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:49:59.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 1, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-3', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 10:00:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-4', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 09:59:59.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-5', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 06:00:01.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-6', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 06:00:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-none', 'Draw the bar', 'Draw the bar as', 12, '0001-01-01 00:00:00+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris,
    status, source, not_fully_idle, killed)
  VALUES ('a-no-date', 'Draw the bar', 'Draw the bar as', 12, 'yesterday', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]',
    'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
