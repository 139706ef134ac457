"""A Debian system of its own in a folder; making and using it needs root."""

import pathlib
import subprocess

from tools.desktop.orvane import in_mount_namespace

USER = 1000


class BareRoot:
    def __init__(self, folder, shared):
        """`shared` is a folder that it sees under the same name."""
        self.folder, self._shared = pathlib.Path(folder), shared

    def make(self, suite):
        """What every Debian has, and nothing else; a system that is there already is left as it is."""
        if self.folder.exists():
            return
        half = self.folder.with_suffix(".part")
        subprocess.run(["rm", "-rf", "--one-file-system", str(half)], check=True)
        half.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["mmdebstrap", "--quiet", "--variant=apt", "--dpkgopt=force-unsafe-io", suite,
                        str(half)], check=True)
        half.rename(self.folder)

    def command(self, *command):
        """The command as root runs it there."""
        mounts = [["-t", "proc", "proc", f"{self.folder}/proc"],
                  ["--rbind", "/dev", f"{self.folder}/dev"],
                  ["--bind", "/etc/resolv.conf", f"{self.folder}/etc/resolv.conf"],
                  ["--mkdir", "--bind", str(self._shared), f"{self.folder}{self._shared}"]]
        return in_mount_namespace(mounts, ["chroot", str(self.folder), *command])

    def user_command(self, command):
        """The command as a user runs it there, to whom everything shared belongs from now on."""
        subprocess.run(["chown", "-R", f"{USER}:{USER}", str(self._shared)], check=True)
        return self.command("setpriv", f"--reuid={USER}", f"--regid={USER}", "--clear-groups",
                            *map(str, command))

    def run(self, *command):
        done = subprocess.run(self.command(*command), stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(done.stdout + done.stderr)

    def apt(self, *arguments):
        self.run("env", "DEBIAN_FRONTEND=noninteractive", "apt-get", "-y", "-q",
                 "--no-install-recommends", *arguments)
