"""The version of the package, which is that of the library inside."""

__version__ = "3.0.3"
