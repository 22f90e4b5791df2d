# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Shells in which something is typed and completed."""

import os
import pty
import re
import select
import subprocess

PATIENCE = 60
READY = "the shell is ready"
SHOWN = re.compile(r"<<(.*?)>>", re.DOTALL)


class Terminal:
    """A shell at a terminal of its own. After Control-X it prints what stands in its line."""

    def __init__(self, command, folder, set_up):
        self.master, slave = pty.openpty()
        environment = {"HOME": folder, "PATH": os.environ["PATH"], "TERM": "dumb", "LC_ALL": "C.UTF-8",
                       "PS1": "", "INPUTRC": "/dev/null", "COLUMNS": "1000"}
        self.process = subprocess.Popen(command, stdin=slave, stdout=slave, stderr=slave, cwd=folder,
                                        env=environment, start_new_session=True)
        os.close(slave)
        self.text = ""
        # Put together by the shell, so that what is typed does not look like it.
        self.send(f"{set_up}\nprintf '%s ' the shell is; echo ready\n")
        self.wait_for(lambda: READY in self.text)

    def send(self, text):
        os.write(self.master, text.encode())

    def wait_for(self, is_there):
        while not is_there():
            ready, _, _ = select.select([self.master], [], [], PATIENCE)
            if not ready:
                raise TimeoutError(f"the shell has said: {self.text!r}")
            self.text += os.read(self.master, 65536).decode(errors="replace")

    def completed(self, typed):
        """The line after a tabulator."""
        self.text = ""
        self.send(f"{typed}\t\x18")
        self.wait_for(lambda: SHOWN.search(self.text))
        line = SHOWN.search(self.text)[1]
        self.send("\x15")  # the line goes
        return line

    def close(self):
        os.close(self.master)
        self.process.kill()
        self.process.wait()


def bash(folder, scripts):
    sourced = "; ".join(f"source '{script}'" for script in scripts)
    show = """bind -x '"\\C-x": printf "<<%s>>" "$READLINE_LINE"'"""
    return Terminal(["bash", "--norc", "--noprofile", "-i"], folder,
                    f"bind 'set enable-bracketed-paste off'; {sourced}; {show}")


def zsh(folder, scripts):
    functions = os.path.dirname(scripts[0])
    set_up = (f"fpath=('{functions}' $fpath); autoload -U compinit; compinit -u -D; "
              "unsetopt automenu; unset zle_bracketed_paste; "
              'show() { print -rn -- "<<$BUFFER>>" }; zle -N show; bindkey "^X" show; '
              'bindkey "^U" kill-whole-line')
    return Terminal(["zsh", "-f", "-i"], folder, set_up)


class Fish:
    """It tells by itself what it would complete."""

    def __init__(self, folder, scripts):
        self.folder = folder
        self.sourced = "; ".join(f"source '{script}'" for script in scripts)

    def completed(self, typed):
        """The line where there is one way to go on, else what was typed."""
        done = subprocess.run(["fish", "--no-config", "-c", f'{self.sourced}; complete -C "{typed}"'],
                              cwd=self.folder, env=dict(os.environ, HOME=self.folder),
                              capture_output=True, text=True, timeout=PATIENCE, check=True)
        words = [line.split("\t")[0] for line in done.stdout.splitlines()]
        if len(words) != 1:
            return typed
        return typed[:len(typed) - len(typed.split(" ")[-1])] + words[0]

    def close(self):
        pass
