"""What pyproject.toml cannot say: a wheel is for one system, since it has a library inside, but for any Python."""

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel


class DistributionWithLibrary(Distribution):
    def has_ext_modules(self):
        return True


class WheelWithLibrary(bdist_wheel):
    def get_tag(self):
        if not self.plat_name_supplied:
            return super().get_tag()
        return "py3", "none", self.plat_name.replace("-", "_").replace(".", "_")


setup(distclass=DistributionWithLibrary, cmdclass={"bdist_wheel": WheelWithLibrary})
