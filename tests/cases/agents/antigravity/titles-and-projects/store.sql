INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris, status, source, not_fully_idle, killed) VALUES
  ('a-1', '', 'Draw the bar as', 12, '2026-11-21 11:59:59.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-2', NULL, 'Draw the bar as', 12, '2026-11-21 11:59:58.765656+00:00', NULL, 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-3', '', 'Draw the bar as', 12, '2026-11-21 11:59:57.765656+00:00', '', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-4', '', 'Draw the bar as', 12, '2026-11-21 11:59:56.765656+00:00', '[]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-5', '', 'Draw the bar as', 12, '2026-11-21 11:59:55.765656+00:00', '["","file:///x"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-6', '', 'Draw the bar as', 12, '2026-11-21 11:59:54.765656+00:00', '["file:///x",3]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-7', '', 'Draw the bar as', 12, '2026-11-21 11:59:53.765656+00:00', '["/home/mira/plain"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-8', 'Größe — “neu”', 'Draw the bar as', NULL, '2026-11-21 11:59:52.765656+00:00', '["file:///home/mira/my%20caf%C3%A9/"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
