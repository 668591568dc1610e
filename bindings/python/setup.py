"""What pyproject.toml cannot say: the wheel is for one system, since it has a library inside, but for any Python."""

from setuptools import setup
from wheel.bdist_wheel import bdist_wheel


class WheelWithLibrary(bdist_wheel):
    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = False

    def get_tag(self):
        if not self.plat_name_supplied:
            return super().get_tag()
        return "py3", "none", self.plat_name.replace("-", "_").replace(".", "_")


setup(cmdclass={"bdist_wheel": WheelWithLibrary})
