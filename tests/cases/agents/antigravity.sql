CREATE TABLE conversation_summaries (
  conversation_id TEXT PRIMARY KEY, title TEXT, preview TEXT, step_count INTEGER, last_modified_time DATETIME,
  workspace_uris TEXT, status TEXT, source INTEGER, project_id TEXT, agent_name TEXT, parent_conversation_id TEXT,
  nesting_depth INTEGER, battle_id TEXT, winning_conversation_id TEXT, not_fully_idle NUMERIC, killed NUMERIC,
  last_user_input_time DATETIME, last_user_input_step_index INTEGER, app_data_dir TEXT);
