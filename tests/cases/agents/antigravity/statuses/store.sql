INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris, status, source, not_fully_idle, killed) VALUES
  ('a-killed', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:50.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_RUNNING', 1, 1, 1),
  ('a-busy', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:49.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 1, 0),
  ('a-running', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:48.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_RUNNING', 1, 0, 0),
  ('a-running-suffix', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:47.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'X_RUNNING_', 1, 0, 0),
  ('a-error', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:46.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_ERROR', 1, 0, 0),
  ('a-null', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:59:45.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', NULL, 1, NULL, NULL);
