INSERT INTO conversation_summaries (conversation_id, title, preview, step_count, last_modified_time, workspace_uris, status, source, not_fully_idle, killed) VALUES
  ('a-1', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:50:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 1, 0),
  ('a-2', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 11:49:59.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 1, 0),
  ('a-3', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 10:00:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-4', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 09:59:59.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-5', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 06:00:01.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-6', 'Draw the bar', 'Draw the bar as', 12, '2026-11-21 06:00:00.765656+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-none', 'Draw the bar', 'Draw the bar as', 12, '0001-01-01 00:00:00+00:00', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0),
  ('a-no-date', 'Draw the bar', 'Draw the bar as', 12, 'yesterday', '["file:///home/mira/code/tilebay","file:///home/mira/code/kit"]', 'CASCADE_RUN_STATUS_IDLE', 1, 0, 0);
