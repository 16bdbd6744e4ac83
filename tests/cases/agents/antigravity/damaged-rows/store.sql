INSERT INTO conversation_summaries (conversation_id, last_modified_time) VALUES (NULL, '2026-11-21 11:59:59+00:00');
INSERT INTO conversation_summaries VALUES (X'FF41', X'C328', NULL, 'many', '2026-11-21 11:59:58Z', X'FF', X'00', 'x', NULL, NULL, NULL, NULL, NULL, NULL, 'no', '', NULL, NULL, NULL);
