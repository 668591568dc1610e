"""The service itself: where it is, whether it answers, and its log."""

from ipaddress import IPv4Address
from typing import Union

from . import _exports
from ._calls import REPLY_BYTES, Connection, decoded, number, printing, weighing
from ._encoding import utf8
from ._native import INT_MIN, process

_CONNECTIONS = {"print": printing, "loadcell": weighing}


def set_server(address: Union[str, IPv4Address]) -> None:
    """Says where the service is. It has to come before everything else, load() excepted.

    Without it, the library reads the address from zelkad_ip_config.ini beside the executable, which is the
    interpreter for a script, and else takes 127.0.0.1.

    Args:
        address: An IPv4 address, such as "192.168.1.20". Names are not looked up.

    Raises:
        ValueError: It is no such address.
        RuntimeError: The library has been used already, and would keep the address that it has.
    """
    if process.owner is not None:
        raise RuntimeError(
            "set_server() comes too late: the library has been used already, and keeps the address that it has. "
            "What to do: call it before everything else."
        )
    if _exports.SetServerIpForRemoteAccess(utf8(str(address), "the address")) != _exports.TOLVEX_OK:
        raise ValueError(f"{str(address)!r} is no IPv4 address that the library takes, such as 192.168.1.20")


def check_connection() -> bool:
    """Asks whether the service answers on the connection for weighing, whatever it answers."""
    with weighing.held():
        return _exports.checkConnection() == 1


def _connection(module: str) -> Connection:
    if module not in _CONNECTIONS:
        raise ValueError(f'the module of the service has to be "print" or "loadcell", not {module!r}')
    return _CONNECTIONS[module]


def service_log_level(module: str) -> str:
    """Asks for the log level of one of the service's modules.

    Args:
        module: "print" or "loadcell".

    Raises:
        TolvexError: The service failed.
        ValueError: There is no such module.
    """
    level = bytearray(REPLY_BYTES + 1)
    _connection(module).code(_exports.getLogLevel, module.encode("ascii"), level, REPLY_BYTES)
    return decoded(level)


def set_service_log_level(module: str, level: Union[str, int]) -> None:
    """Sets the log level of one of the service's modules.

    Args:
        module: "print" or "loadcell".
        level: The level, which is the service's.

    Raises:
        TolvexError: The service failed.
        TypeError: The level is neither a str nor an int.
        ValueError: There is no such module.
    """
    if not isinstance(level, str):
        level = str(number(level, "the level", INT_MIN))
    _connection(module).code(_exports.setLogLevel, module.encode("ascii"), utf8(level, "the level"))
