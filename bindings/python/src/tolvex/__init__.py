"""Scale, receipt and label printer and cash drawer of a shop, by the library tolvex.

    import tolvex

    weight = tolvex.Scale().wait_stable()
    tolvex.Receipt().text(f"Apples  {weight.net} kg").print()

The package has the library inside. Importing it loads nothing and connects to nothing: the first call does.
Failures are TolvexError, which carries the code, its name and what to do about it. tolvex.aio has the same for
asyncio, tolvex.exports every function of the library under its own name.
"""

from . import aio, exports
from ._codes import Explanation, ResultCode
from ._encoding import encode_for_queue
from ._errors import (
    LibraryNotLoaded,
    QueueNotEmpty,
    StableWeightTimeout,
    TolvexError,
    UnprintableText,
    explain,
)
from ._loader import load
from ._printing import Printer, PrinterSettings, PrinterStatus, PrinterType, feed_blank, open_cash_drawer, printers
from ._receipt import JobType, Receipt
from ._scale import Reading, Scale, ScaleInfo, WeighingRange, WeightState
from ._service import check_connection, service_log_level, set_server, set_service_log_level
from ._version import __version__

__all__ = [
    "Explanation",
    "JobType",
    "LibraryNotLoaded",
    "Printer",
    "PrinterSettings",
    "PrinterStatus",
    "PrinterType",
    "QueueNotEmpty",
    "Reading",
    "Receipt",
    "ResultCode",
    "Scale",
    "ScaleInfo",
    "StableWeightTimeout",
    "TolvexError",
    "UnprintableText",
    "WeighingRange",
    "WeightState",
    "__version__",
    "aio",
    "check_connection",
    "encode_for_queue",
    "explain",
    "exports",
    "feed_blank",
    "load",
    "open_cash_drawer",
    "printers",
    "service_log_level",
    "set_server",
    "set_service_log_level",
]
