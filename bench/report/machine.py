"""On what was measured."""

import datetime
import json
import os
import platform
import subprocess


def _first(path, key):
    with open(path, encoding="utf-8", errors="replace") as lines:
        for line in lines:
            name, _, value = line.partition("=" if "=" in line else ":")
            if name.strip() == key:
                return value.strip().strip('"')
    return ""


def build_of(folder):
    """Compiler and kind of build, as the benchmark's own program tells."""
    listed = subprocess.run([folder / "claims_bench", "--list"], check=True, capture_output=True, text=True)
    return json.loads(listed.stdout)["build"]


def description(folder):
    memory = int(_first("/proc/meminfo", "MemTotal").split()[0])
    built = build_of(folder)
    return {
        "cpu": _first("/proc/cpuinfo", "model name"),
        "cores": os.cpu_count(),
        "memory_mib": memory // 1024,
        "hypervisor": "hypervisor" in _first("/proc/cpuinfo", "flags").split(),
        "system": _first("/etc/os-release", "PRETTY_NAME"),
        "kernel": f"{platform.system()} {platform.release().partition('-')[0]} {platform.machine()}",
        "compiler": built["compiler"],
        "build_type": built["type"],
        "date": datetime.date.today().isoformat(),
        "load_before": round(os.getloadavg()[0], 2),
    }


def in_short():
    """Processor, cores that may be used, and system."""
    cores = len(os.sched_getaffinity(0))
    release = ".".join(platform.release().split(".")[:2])
    model = _first("/proc/cpuinfo", "model name") or platform.machine()
    return f"{model}, {cores} core{'s' if cores > 1 else ''}, {platform.system()} {release}"


def sentence(machine):
    kind = "a virtual machine" if machine["hypervisor"] else "a machine"
    return (
        f"{machine['date']}, on {kind} with {machine['cores']} cores ({machine['cpu']}) and "
        f"{machine['memory_mib'] / 1024:.0f} GiB, {machine['system']}, {machine['kernel']}, {machine['compiler']}, "
        f"{machine['build_type']}, load before it {machine['load_before']}."
    )
