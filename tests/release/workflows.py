"""The workflows in .github/workflows have the form that GitHub takes, their commands are sound for the shell, and what they
call is in the tree. The rules are those of GitHub's documentation for the keys that are used; other keys are refused."""
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.append("/usr/lib/python3/dist-packages")  # Debian's packages, also for another Python
import jsonschema
import yaml

TOP = pathlib.Path(__file__).resolve().parents[2]
WORKFLOWS = sorted((TOP / ".github" / "workflows").glob("*.yml"))
YAML_RULES = "{extends: default, rules: {line-length: {max: 120}, document-start: disable, truthy: {check-keys: false}}}"
# What stands for a value that GitHub puts into a command.
VALUE = "value"
CALLED = re.compile(r"(?:^|\s)(?:python3? )?\.?/?((?:tools/|tests/)[\w./-]+\.py|(?<=\./)\w+)\b")


def table(required, **properties):
    return {"type": "object", "additionalProperties": False, "properties": properties, "required": required}


TEXT = {"type": "string", "minLength": 1}
MINUTES = {"type": "integer", "minimum": 1, "maximum": 360}
TEXTS = {"type": "object", "additionalProperties": {"type": ["string", "number", "boolean"]}}
SHELL = {"enum": ["bash", "msys2 {0}"]}
STEP = {"oneOf": [
    table(["run"], **{"name": TEXT, "run": TEXT, "if": TEXT, "env": TEXTS, "shell": SHELL}),
    table(["uses"], **{"name": TEXT, "uses": {"type": "string", "pattern": r"^[\w-]+/[\w-]+@v\d+$"}, "if": TEXT, "with": TEXTS})]}
JOB = table(["runs-on", "steps", "timeout-minutes"], **{
    "runs-on": {"enum": ["ubuntu-latest", "windows-latest"]}, "container": TEXT, "needs": TEXT, "timeout-minutes": MINUTES,
    "defaults": table(["run"], run=table(["shell"], shell=SHELL)), "steps": {"type": "array", "items": STEP, "minItems": 1}})
PUSH = {"oneOf": [{"type": "null"}, table(["tags"], tags={"type": "array", "items": TEXT})]}
WORKFLOW = table(["name", "on", "permissions", "jobs"], **{
    "name": TEXT, "on": table(["push"], push=PUSH, pull_request={"type": "null"}),
    "permissions": table(["contents"], contents={"enum": ["read"]}),
    "jobs": {"type": "object", "minProperties": 1, "additionalProperties": JOB}})


def read(file):
    workflow = yaml.safe_load(file.read_text(encoding="utf-8"))
    workflow["on"] = workflow.pop(True)  # YAML 1.1 takes `on` for a truth value
    return workflow


class Workflows(unittest.TestCase):
    def commands(self, file):
        """(the shell, the command) of each step that runs one."""
        for job in read(file)["jobs"].values():
            default = job.get("defaults", {}).get("run", {}).get("shell")
            for step in job["steps"]:
                if "run" in step:
                    windows = job["runs-on"].startswith("windows")
                    yield step.get("shell", default or ("pwsh" if windows else "bash")), step["run"]

    def test_have_the_form_that_github_takes(self):
        self.assertGreater(len(WORKFLOWS), 2)
        for file in WORKFLOWS:
            with self.subTest(file.name):
                jsonschema.validate(read(file), WORKFLOW)

    def test_are_clean_yaml(self):
        done = subprocess.run(["yamllint", "--strict", "-d", YAML_RULES, *WORKFLOWS], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_expressions_are_closed_and_wait_for_jobs_of_the_file(self):
        for file in WORKFLOWS:
            with self.subTest(file.name):
                text = file.read_text(encoding="utf-8")
                self.assertEqual(text.count("${{"), len(re.findall(r"\$\{\{ [^{}]+ \}\}", text)))
                jobs = read(file)["jobs"]
                self.assertLessEqual({job["needs"] for job in jobs.values() if "needs" in job}, set(jobs))

    def test_commands_of_the_shell_are_sound(self):
        checked = 0
        for file in WORKFLOWS:
            for shell, command in self.commands(file):
                if shell == "pwsh":
                    continue  # shellcheck knows the shells of Unix
                script = re.sub(r"\$\{\{.*?\}\}", VALUE, command)
                with self.subTest(file.name, command=command):
                    done = subprocess.run(["shellcheck", "--shell=bash", "-"], input=script, capture_output=True, text=True)
                    self.assertEqual((done.returncode, done.stdout), (0, ""))
                    checked += 1
        self.assertGreater(checked, 5)

    def test_what_they_call_is_in_the_tree(self):
        called = {name for file in WORKFLOWS for _, command in self.commands(file) for name in CALLED.findall(command)}
        self.assertLessEqual({"test", "release", "tools/press_windows.py"}, called)
        self.assertEqual([name for name in sorted(called) if not (TOP / name).exists()], [])


if __name__ == "__main__":
    unittest.main()
