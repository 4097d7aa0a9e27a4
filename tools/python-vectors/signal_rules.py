"""Vectors of hook events and signals: the rules written down once more, plainly, over Python's own str, json, pathlib.

normalize rows: agent, event, its normal form with sorted keys or "absent". encode rows: source, payload, whether
responses are included, the signal with sorted keys or "absent".
"""

import json
import random
from pathlib import PurePosixPath

from tessary_rows import row

LIFECYCLE = ["SessionStart", "UserPromptSubmit", "PostToolUse", "Stop", "SessionEnd", "SubagentStart", "SubagentStop"]
CLAUDE_SHAPED = {name: LIFECYCLE for name in ["qwen", "codebuddy", "qoder", "qwenwork", "qoderwork", "kimi-code", "kimi"]}
CLAUDE_SHAPED["droid"] = [name for name in LIFECYCLE if name != "SubagentStart"]
GROK = ["SessionStart", "PostToolUse"]
MISSING = object()


def first(event, *keys, default=MISSING):
    return next((event[key] for key in keys if key in event), default)


def is_absolute(value):
    return isinstance(value, str) and value[:1] == "/"


def as_object(value):
    if isinstance(value, str):
        try:
            value = json.loads(value)
        except ValueError:
            return {}
    return value if isinstance(value, dict) else {}


def claude_shape(event, name, names, result, cwd):
    if name not in names:
        return None
    result["hook_event_name"] = name
    result["tool_name"] = first(event, "tool_name", default="")
    result["tool_input"] = as_object(event.get("tool_input"))
    result["tool_response"] = as_object(event.get("tool_response"))
    result["last_assistant_message"] = event.get("last_assistant_message")
    for key in ("agent_id", "parent_session_id", "transcript_path"):
        if isinstance(event.get(key), str):
            result[key] = event[key]
    return cwd


def copilot(event, name, result, cwd):
    outcome = as_object(first(event, "toolResult", "tool_result"))
    if name not in ("", "postToolUse", "PostToolUse") or first(outcome, "resultType", "result_type") != "success":
        return None
    result["hook_event_name"] = "PostToolUse"
    result["tool_name"] = first(event, "toolName", "tool_name", default="")
    result["tool_input"] = as_object(first(event, "toolArgs", "tool_input"))
    return cwd


def edit(result, tool, file, cwd):
    if not is_absolute(file):
        return None
    result.update(hook_event_name="PostToolUse", tool_name=tool, tool_input={"file_path": file})
    return cwd if is_absolute(cwd) else str(PurePosixPath(file).parent)


def cursor(event, name, result, cwd):
    roots = event.get("workspace_roots")
    if isinstance(roots, list) and len(roots) == 1 and is_absolute(roots[0]):
        cwd = roots[0]
    if name == "afterFileEdit":
        cwd = edit(result, "edit", event.get("file_path"), cwd)
    elif name == "afterAgentResponse":
        result.update(hook_event_name="Stop", last_assistant_message=event.get("text"))
    else:
        return None
    if isinstance(event.get("generation_id"), str):
        result["turn_id"] = event["generation_id"]
    return cwd


def windsurf(event, name, result, cwd):
    info = as_object(event.get("tool_info"))
    if name == "post_write_code":
        cwd = edit(result, "write", info.get("file_path"), cwd)
    elif name == "post_cascade_response":
        result.update(hook_event_name="Stop", last_assistant_message=info.get("response"))
    else:
        return None
    if isinstance(event.get("execution_id"), str):
        result["turn_id"] = event["execution_id"]
    return cwd


def opencode(event, name, result, cwd):
    if name != "tool.execute.after":
        return None
    result["hook_event_name"] = "PostToolUse"
    result["tool_name"] = first(event, "tool_name", default="")
    result["tool_input"] = as_object(event.get("tool_input"))
    result["tool_response"] = as_object(event.get("tool_response"))
    return cwd


def grok(event, name, result, cwd):
    if "hookEventName" not in event:
        return claude_shape(event, name, GROK, result, cwd)
    if not isinstance(event["hookEventName"], str) or event["hookEventName"] not in GROK:
        return None
    result["hook_event_name"] = event["hookEventName"]
    result["tool_name"] = first(event, "toolName", default="")
    result["tool_input"] = as_object(event.get("toolInput"))
    return cwd if is_absolute(cwd) else event.get("workspaceRoot")


SHAPES = {"copilot": copilot, "cursor": cursor, "windsurf": windsurf, "opencode": opencode, "grok-build": grok}


def normalize(agent, event):
    name = first(event, "hook_event_name", "agent_action_name", default="")
    if agent not in SHAPES and agent not in CLAUDE_SHAPED or not isinstance(name, str):
        return None
    session = first(event, "session_id", "sessionId", "conversation_id", "trajectory_id")
    result = {"session_id": session if isinstance(session, str) else None, "tool_name": "", "tool_input": {},
              "tool_response": {}, "last_assistant_message": None}
    for key in ("model", "timestamp"):
        if isinstance(event.get(key), str):
            result[key] = event[key]
    if agent in CLAUDE_SHAPED:
        cwd = claude_shape(event, name, CLAUDE_SHAPED[agent], result, event.get("cwd"))
    else:
        cwd = SHAPES[agent](event, name, result, event.get("cwd"))
    tool_input = result["tool_input"]
    if isinstance(tool_input.get("filePath"), str) and "file_path" not in tool_input:
        result["tool_input"] = tool_input | {"file_path": tool_input["filePath"]}
    if not is_absolute(cwd) or not isinstance(result["tool_name"], str):
        return None
    result["cwd"] = cwd
    if not isinstance(result["last_assistant_message"], str):
        result["last_assistant_message"] = None
    for key in ("sourceProfileID", "sourceProfileLabel", "sourceKind", "agentHome"):
        if isinstance(event.get(key), str):
            result[key] = event[key]
    if isinstance(event.get("_tessaryProducer"), dict):
        result["_tessaryProducer"] = event["_tessaryProducer"]
    return result


SOURCES = """claude codex zcode gemini antigravity cursor trae opencode mimocode droid qoder qoderwork qwen qwenwork
grok-build kimi-code deepseek dsh mistral-vibe devin copilot codebuddy workbuddy kiro hermes amp pi oh-my-pi gajae-code kimi
windsurf""".split()
FIELDS = """hook_event_name session_id cwd model transcript_path tool_name tool_use_id timestamp turn_id response_id
message_id parent_session_id isSidechain agent_id _tessaryProfile _tessaryLocalIngress""".split()
MARKERS = ("*** Begin Patch", "*** End Patch", "*** Add File:", "*** Update File:", "*** Move to:")


def encode(source, payload, includes_responses):
    if source not in SOURCES:
        return None
    kept = {key: payload[key] for key in FIELDS if key in payload}
    tool_input = payload.get("tool_input")
    if not isinstance(tool_input, dict):
        tool_input = payload.get("args")
    if isinstance(tool_input, dict):
        reduced = {key: tool_input[key] for key in ("file_path", "path", "absolute_path")
                   if isinstance(tool_input.get(key), str)}
        for key in ("patch", "input", "command"):
            text = tool_input.get(key)
            if isinstance(text, str) and text.lstrip().startswith(MARKERS[0]):
                reduced[key] = "\n".join(line for line in text.splitlines() if line.startswith(MARKERS))
        kept["tool_input"] = reduced
    if isinstance(payload.get("tool_response"), dict):
        kept["tool_response"] = {key: payload["tool_response"][key] for key in ("success", "error")
                                 if key in payload["tool_response"]}
    if includes_responses:
        for key in ("last_assistant_message", "assistant_response"):
            if isinstance(payload.get(key), str):
                kept[key] = payload[key]
    text = json.dumps({"version": 1, "source": source, "payload": kept}, sort_keys=True, ensure_ascii=True)
    return text if len(text) <= 65536 else None


# What stands where a rule wants something else, or accepts it against expectation.
JUNK = [None, True, 0, 1, 7, -1.5, 2**70, "", " ", "relative/plan.md", "./a", "~/a", "/", "//", "//net/a", "/a/./b//c.md",
        "/é/😀.md", [], ["/only"], ["/a", "/b"], [["/a"]], {}, {"filePath": "/f.md"}, {"filePath": "/f.md", "file_path": None},
        {"file_path": 5, "filePath": "/f.md"}, {"filePath": 5}, {"file_path": "/g.md", "response": "r"},
        '{"filePath": "/t.md"}', '{"file_path": "/t.md", "response": 1}', '"{\\"file_path\\": \\"/t.md\\"}"', "[1]", "7", "nul",
        '{"a": 1', ' {"resultType": "success"} ', {"result_type": "success"}, {"resultType": None, "result_type": "success"},
        {"resultType": "success", "result_type": "failure"}, {"success": True, "error": {"x": [1.0]}, "output": "secret"}]
NAMES = LIFECYCLE + ["postToolUse", "afterFileEdit", "afterAgentResponse", "post_write_code", "post_cascade_response",
                     "tool.execute.after", "", "stop", "PreToolUse"]
TEXTS = ["a", "한국어", "line\nline", "\u2028", "\x7f"]
OBJECTS = [{"file_path": "/home/u/plan.md", "content": "c"}, {"filePath": "/home/u/b.md"}, {"path": "p.md"}]
GENERAL = {
    "hook_event_name": NAMES, "cwd": ["/home/u/project", "/"], "session_id": ["s-1"], "sessionId": ["s-2"],
    "conversation_id": ["s-3"], "trajectory_id": ["s-4"], "model": ["m"], "timestamp": ["2026-01-02T03:04:05Z"],
    "tool_name": ["Write"], "tool_input": OBJECTS, "tool_response": [{"success": True, "output": "o"}],
    "last_assistant_message": TEXTS, "agent_id": ["a-1"], "parent_session_id": ["p-1"], "transcript_path": ["/t.jsonl"],
    "sourceProfileID": ["i"], "sourceProfileLabel": ["l"], "sourceKind": ["k"], "agentHome": ["/home/u/.x"],
    "_tessaryProducer": [{"b": 1, "a": [2.5]}], "unknown": ["u"],
}
OWN = {
    "copilot": {"toolResult": [{"resultType": "success"}], "tool_result": [{"result_type": "success"}],
                "toolName": ["create"], "toolArgs": OBJECTS},
    "cursor": {"workspace_roots": [["/home/u/root"], ["/a", "/b"]], "file_path": ["/home/u/root/a.md", "/top.md"],
               "text": TEXTS, "generation_id": ["g-1"]},
    "windsurf": {"agent_action_name": ["post_write_code", "post_cascade_response"], "execution_id": ["e-1"],
                 "tool_info": [{"file_path": "/home/u/w.md", "response": "done"}]},
    "grok-build": {"hookEventName": GROK, "workspaceRoot": ["/home/u/w"], "toolName": ["write"], "toolInput": OBJECTS},
}
LIKELY = {"copilot": ["postToolUse", "PostToolUse", ""], "cursor": ["afterFileEdit", "afterAgentResponse"],
          "windsurf": ["post_write_code", "post_cascade_response"], "opencode": ["tool.execute.after"], "grok-build": GROK}


def random_event(rng, agent):
    keys = GENERAL | OWN.get(agent, {})
    likely = LIKELY.get(agent) or CLAUDE_SHAPED.get(agent, LIFECYCLE)
    event = {}
    for key in rng.sample(sorted(keys), len(keys)):
        if rng.random() < (0.85 if key in ("cwd", "hook_event_name") or key in OWN.get(agent, {}) else 0.3):
            event[key] = rng.choice(JUNK) if rng.random() < 0.15 else rng.choice(keys[key])
    if "hook_event_name" in event and rng.random() < 0.8:
        event["hook_event_name"] = rng.choice(likely)
    return event


PIECES = ["*** Begin Patch", "*** End Patch", "*** Add File: /a.md", "*** Update File: é.md", "*** Move to: /b.md",
          "*** Delete File: /gone.md", "***Begin Patch", "*** begin patch", "+SECRET", "-SECRET", " context", "@@", "",
          "*** Add File :x", " *** Add File: /indented.md", "SECRET *** Add File: /inside.md"]
LINE_ENDS = ["\n", "\r\n", "\r", "\x0b", "\x0c", "\x1c", "\x1d", "\x1e", "\x1f", "\x85", "\u2028", "\u2029", "\n\n", "\t"]
LEADS = ["", " ", "\n", "\t \r\n", "\u3000", "\x1f", "\u200b", "\ufeff", "x", "\x85\u2028"]


def random_patch(rng):
    text = rng.choice(LEADS) + (rng.choice(PIECES) if rng.random() < 0.2 else PIECES[0])
    for _ in range(rng.randint(0, 6)):
        text += rng.choice(LINE_ENDS) + rng.choice(PIECES)
    return text


def random_payload(rng):
    payload = {}
    for key in FIELDS + ["last_assistant_message", "assistant_response", "content", "unknown", "tool_input_2"]:
        if rng.random() < 0.25:
            payload[key] = rng.choice(JUNK + TEXTS * 8)
    for key in ("tool_input", "args"):
        if rng.random() < 0.6:
            payload[key] = rng.choice(JUNK) if rng.random() < 0.2 else {
                inner: rng.choice(JUNK) if rng.random() < 0.2 else random_patch(rng)
                for inner in ("file_path", "path", "absolute_path", "patch", "input", "command", "content", "old_string")
                if rng.random() < 0.35}
    if rng.random() < 0.5:
        payload["tool_response"] = rng.choice(JUNK + [{"error": "e", "success": False, "content": "c"}] * 10)
    items = list(payload.items())
    rng.shuffle(items)
    return dict(items)


def vectors():
    rng = random.Random(20260307)
    normal, signals = [], []
    for agent in list(CLAUDE_SHAPED) + list(SHAPES) + ["claude", "", "Droid"]:
        for _ in range(150 if agent in SHAPES else 40 if agent in CLAUDE_SHAPED else 4):
            event = random_event(rng, agent)
            result = normalize(agent, event)
            shown = "absent" if result is None else json.dumps(result, sort_keys=True)
            normal.append(row(agent, json.dumps(event, ensure_ascii=False), shown))
    for index in range(700):
        source = SOURCES[index % 31] if rng.random() < 0.97 else rng.choice(["", "Claude", "claude ", "kim\u0131"])
        payload, includes_responses = random_payload(rng), rng.random() < 0.5
        shown = encode(source, payload, includes_responses) or "absent"
        signals.append(row(source, json.dumps(payload, ensure_ascii=False), includes_responses, shown))
    return [("normalize.tsv", "".join(normal)), ("encode.tsv", "".join(signals))]
