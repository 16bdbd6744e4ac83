CREATE TABLE conversation_summaries (conversation_id TEXT, title TEXT, last_modified_time TEXT);
INSERT INTO conversation_summaries VALUES ('a-1', 'x', '2026-11-21 11:59:59+00:00');
