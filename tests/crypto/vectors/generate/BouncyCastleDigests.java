// Writes test vectors from Bouncy Castle (Debian: libbcprov-java), which shares no code with our engines.
//
// Usage: java -cp /usr/share/java/bcprov.jar BouncyCastleDigests.java > ../bouncycastle-independent.txt

import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.Supplier;
import org.bouncycastle.crypto.Digest;
import org.bouncycastle.crypto.digests.*;
import org.bouncycastle.util.encoders.Hex;

public class BouncyCastleDigests {
    // Around every block edge of the algorithms, around our read buffer, and several buffers.
    private static final int[] SIZES = {0, 1, 15, 16, 17, 55, 56, 63, 64, 65, 71, 72, 73, 103, 104, 105, 111, 112,
        127, 128, 129, 135, 136, 137, 143, 144, 145, 32767, 32768, 32769, 65536};

    private static Map<String, Supplier<Digest>> algorithms() {
        Map<String, Supplier<Digest>> all = new LinkedHashMap<>();
        for (int bits : new int[] {224, 256, 384, 512})
            all.put("SHA3-" + bits, () -> new KeccakDigest(bits));
        all.put("Tiger-192", TigerDigest::new);
        all.put("Whirlpool", WhirlpoolDigest::new);
        all.put("RIPEMD-128", RIPEMD128Digest::new);
        all.put("RIPEMD-160", RIPEMD160Digest::new);
        all.put("RIPEMD-256", RIPEMD256Digest::new);
        all.put("RIPEMD-320", RIPEMD320Digest::new);
        all.put("MD2", MD2Digest::new);
        all.put("MD4", MD4Digest::new);
        return all;
    }

    private static byte[] pattern(int size) {
        byte[] bytes = new byte[size];
        for (int i = 0; i < size; ++i)
            bytes[i] = (byte) (i % 251);
        return bytes;
    }

    private static String digestOf(Digest digest, byte[] message) {
        byte[] out = new byte[digest.getDigestSize()];
        digest.update(message, 0, message.length);
        digest.doFinal(out, 0);
        return Hex.toHexString(out).toUpperCase();
    }

    public static void main(String[] arguments) {
        System.out.println("# Bouncy Castle; made by generate/BouncyCastleDigests.java.");
        System.out.println("# The SHA3 names stand for Keccak with the padding of the submission, not FIPS 202.");
        algorithms().forEach((name, make) -> {
            System.out.println("\nalgorithm = " + name);
            for (int size : SIZES)
                System.out.println("pattern = " + size + "\nout = " + digestOf(make.get(), pattern(size)));
        });
    }
}
