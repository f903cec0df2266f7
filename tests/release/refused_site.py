"""./release refuses a site that isn't https, before it builds anything."""
import pathlib
import subprocess
import unittest

RELEASE = pathlib.Path(__file__).resolve().parents[2] / "release"


class RefusedSite(unittest.TestCase):
    def test_a_site_that_is_not_https_ends_the_release(self):
        for argument, site in (("-DTAVIX_SITE=http://www.tavix.example", "http://www.tavix.example"),
                               ("-DTAVIX_SITE:STRING=http://www.tavix.example", "http://www.tavix.example"),
                               ("-DTAVIX_SITE=www.tavix.example", "www.tavix.example"), ("-DTAVIX_SITE=https://", "https://"),
                               ("-DTAVIX_SITE=", "")):
            for before in ((), ("--check",), ("-DTAVIX_MAKER_SITE=https://maker.example",)):
                with self.subTest(argument, before=before):
                    done = subprocess.run([RELEASE, *before, argument], capture_output=True, text=True, timeout=600)
                    self.assertEqual(done.returncode, 1, done)
                    self.assertEqual(done.stdout, "")
                    self.assertEqual(done.stderr, f'The product\'s site has to be an https address, and is "{site}": '
                                     "-DTAVIX_SITE=https://...\n")


if __name__ == "__main__":
    unittest.main()
